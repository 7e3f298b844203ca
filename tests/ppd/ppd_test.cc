#include "ppd/ppd_test.h"

#include <cstdlib>

namespace {

std::string emitted(const RunResult& result) {
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.errors, "");
  return result.output;
}

std::vector<std::string> emitArguments(const std::string& name, const std::string& form,
                                       const Settings& settings) {
  std::vector<std::string> arguments = {"emit", name + ".xml", "--to", form, "--ignore-rules"};
  for (const auto& [feature, value] : settings) {
    arguments.emplace_back("-o");
    arguments.push_back(std::string(feature).append("=").append(value));
  }
  return arguments;
}

}  // namespace

std::string PpdTest::sourceFile(const std::string& name) {
  return std::string(PPD_FILES) + "/" + name + ".ppd";
}

std::string PpdTest::import(const std::string& name) const {
  std::filesystem::copy_file(sourceFile(name), folder() / (name + ".ppd"));
  const RunResult result = run({"import", name + ".ppd", "--output", name + ".xml"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "");
  return result.errors;
}

std::string PpdTest::importLines(const std::string& lines) const {
  write("odd.ppd", "*PPD-Adobe: \"4.3\"\n" + lines);
  const RunResult result = run({"import", "odd.ppd", "--output", "odd.xml"});
  EXPECT_EQ(result.status, 0);
  return result.errors;
}

MarkedPpd PpdTest::odd() const {
  return MarkedPpd((folder() / "odd.ppd").string());
}

std::string PpdTest::postScript(const std::string& name, const Settings& settings) const {
  return emitted(run(emitArguments(name, "ps", settings)));
}

std::string PpdTest::pjl(const std::string& name, const Settings& settings) const {
  return emitted(run(emitArguments(name, "pjl", settings)));
}

std::string PpdTest::section(const std::string& postScript, const std::string& name) {
  const std::string begin = "%DriverSection " + name + "\n";
  const std::size_t start = postScript.find(begin);
  if (start == std::string::npos) return "no section " + name;
  const std::size_t text = start + begin.size();
  return postScript.substr(text, postScript.find("\n%EndDriverSection\n", text) - text);
}

MarkedPpd::MarkedPpd(const std::string& path) : ppd_(ppdOpenFile(path.c_str()), &ppdClose) {
  if (!ppd_) std::abort();
  ppdMarkDefaults(ppd_.get());
}

void MarkedPpd::mark(const std::string& keyword, const std::string& choice) {
  ppdMarkOption(ppd_.get(), keyword.c_str(), choice.c_str());
}

std::string MarkedPpd::text(ppd_section_t section) {
  const std::unique_ptr<char, void (*)(void*)> text(ppdEmitString(ppd_.get(), section, 0),
                                                    &std::free);
  return text ? text.get() : "";
}

std::string MarkedPpd::jobStart() {
  return ppd_->jcl_begin + text(PPD_ORDER_JCL) + ppd_->jcl_ps;
}

std::string MarkedPpd::choice(const std::string& keyword) {
  text(PPD_ORDER_ANY);  // Settles the page size.
  const ppd_choice_t* choice = ppdFindMarkedChoice(ppd_.get(), keyword.c_str());
  return choice != nullptr ? choice->choice : "not set";
}
