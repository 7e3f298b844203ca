#include "page_process/page_fixture.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/base/descriptor.h"
#include "host/base/frames.h"
#include "host/base/utf16.h"

namespace driver_feature::testing {

namespace {

std::string readFile(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

PageClient::PageClient(const page::PageRequest& request) {
  std::array<int, 2> ends{};
  EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
  std::fflush(nullptr);
  // A request to a process that has ended is one without a reply.
  std::signal(SIGPIPE, SIG_IGN);
  process_ = ::fork();
  if (process_ == 0) {
    ::close(ends[0]);
    ::_exit(page::runPageProcess(ends[1], request));
  }
  ::close(ends[1]);
  socket_ = ends[0];
  greeting_ = next();
}

PageClient::~PageClient() {
  if (process_ > 0) end();
}

Json PageClient::askText(const std::string& request) {
  host::writeAll(socket_, host::frame(request));
  Json reply = next();
  // Those of a model are their names only.
  const bool hasOutputs = reply.is_object() && reply.contains("values");
  if (hasOutputs) takeOutputs(reply);
  return reply;
}

// As docs/page-requests.md has it.
void PageClient::takeOutputs(const Json& reply) {
  for (const auto& [name, change] : reply["outputs"].items()) {
    if (!change.contains("at")) {
      outputs_[name] = change;
      continue;
    }
    if (!outputs_.contains(name)) continue;  // No state has been asked for.
    std::string text = outputs_[name]["text"];
    const std::size_t at = host::bytesBeforeUnits(text, change["at"]);
    const std::size_t gone = host::bytesBeforeUnits(text.substr(at), change["gone"]);
    const std::string come = change["text"];
    text.replace(at, gone, come);
    const Json old = outputs_[name]["spans"];
    Json spans = Json::array();
    for (std::size_t i = 0; i < change["head"]; ++i) spans.push_back(old[i]);
    for (const Json& span : change["spans"]) spans.push_back(span);
    for (std::size_t i = old.size() - change["tail"].get<std::size_t>(); i < old.size(); ++i) {
      spans.push_back(old[i]);
      spans.back()[0] =
          old[i][0].get<std::size_t>() + host::utf16Units(come) - change["gone"].get<std::size_t>();
    }
    outputs_[name] = {{"text", text}, {"spans", spans}};
  }
}

int PageClient::end() {
  ::close(socket_);
  int status = 0;
  ::waitpid(process_, &status, 0);
  process_ = -1;
  return status;
}

Json PageClient::next() {
  for (;;) {
    bool isMalformed = false;
    if (const auto text = host::takeFrame(arrived_, isMalformed)) return Json::parse(*text);
    std::array<char, 65536> buffer;
    const ssize_t count = ::read(socket_, buffer.data(), buffer.size());
    if (count <= 0) return nullptr;
    arrived_.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

page::PageRequest requestFor(const std::string& description) {
  page::PageRequest request;
  request.description = description;
  request.library = DRIVER_FEATURE_LIBRARY;
  request.routines = {OFFICE_ROUTINES};
  return request;
}

page::PageRequest officeLaser() {
  return requestFor(std::string(DESCRIPTIONS) + "/office_laser.xml");
}

page::PageRequest labelPrinter() {
  return requestFor(std::string(DESCRIPTIONS) + "/label_printer.xml");
}

std::string writtenFile(const std::string& name, const std::string& text) {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::filesystem::path folder = std::filesystem::path(::testing::TempDir()) / "page_tests" /
                                       (std::string(test->test_suite_name()) + "." + test->name());
  std::filesystem::create_directories((folder / name).parent_path());
  std::ofstream(folder / name, std::ios::binary) << text;
  return folder / name;
}

std::string description(const std::string& elements, const std::string& additions) {
  return "<Root>\n<FeatureDescription>\n"
         "<BaseFeatureInfo DefaultCallbackHandler=\"DriverFeatureHostUpdate\" "
         "LoadVORNCallbackHandler=\"DriverFeatureHostLoad\"/>\n" +
         elements + "</FeatureDescription>\n" + additions + "</Root>\n";
}

Outputs outputsOf(const Json& state) {
  const Json& outputs = state["outputs"];
  return {outputs["ps"]["text"], outputs["pjl"]["text"], outputs["ticket"]["text"]};
}

Outputs runCommand(std::string command) {
  const std::string start = "driver-feature emit --to ps ";
  EXPECT_TRUE(command.starts_with(start)) << command;
  const std::string ps = writtenFile("emitted.ps", "");
  const std::string folder = std::filesystem::path(ps).parent_path();
  const std::string pjl = folder + "/emitted.pjl";
  const std::string ticket = folder + "/emitted.ticket";
  command.replace(0, start.size(),
                  std::string(DRIVER_FEATURE_PROGRAM) + " emit --to ps='" + ps + "' --to pjl='" +
                      pjl + "' --to ticket='" + ticket + "' ");
  const std::string script = writtenFile("command.sh", command);
  const std::string messages = folder + "/messages";
  const int status = std::system(("sh '" + script + "' 2>'" + messages + "'").c_str());
  EXPECT_EQ(status, 0) << command << "\n" << readFile(messages);
  return {readFile(ps), readFile(pjl), readFile(ticket)};
}

}  // namespace driver_feature::testing
