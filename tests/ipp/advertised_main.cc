// Whether everything that a printer advertises of a description works: every visible
// feature and every choice is carried by an attribute, every advertised value is
// accepted, and the features take the settings that come of it.
//
//   ipp_advertised --library PLUGIN [--routines LIBRARY]... [--print] FILE...
//
// A file is a description or a PPD, which is imported first; "-" reads names of files
// from standard input. --print shows the attributes and texts. Each is examined in a process of its
// own. One line is printed for each fault, and the sums at the end; the exit status is 0 without a
// fault.
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/base/child_process.h"
#include "host/ipp/translation.h"
#include "host/ppd/import/import.h"
#include "host/session/session.h"
#include "tests/ipp/advertised_examination.h"

namespace {

using driver_feature::ipp::Capabilities;
using driver_feature::ipp::Translation;

struct Request {
  bool prints = false;
  std::string library;
  std::vector<std::string> routines;
};

void print(const Translation& translation) {
  const std::unique_ptr<ipp_t, void (*)(ipp_t*)> printer(ippNew(), &ippDelete);
  translation.addPrinterAttributes(printer.get());
  for (ipp_attribute_t* each = ippFirstAttribute(printer.get()); each != nullptr;
       each = ippNextAttribute(printer.get())) {
    std::vector<char> text(ippAttributeString(each, nullptr, 0) + 1);
    ippAttributeString(each, text.data(), text.size());
    std::cout << ippGetName(each) << " " << text.data() << '\n';
  }
  std::cout << translation.strings("en");
}

std::vector<std::string> examine(const Request& request, std::string file) {
  std::string imported;
  if (!file.ends_with(".xml")) {
    const auto description = driver_feature::ppd::importPpd(file);
    if (!description) return {"0", "0", "is not imported: " + description.error().text + "\n"};
    imported = "/tmp/ipp_advertised." + std::to_string(getpid()) + ".xml";
    std::ofstream(imported) << description->text;
    file = imported;
  }
  driver_feature::host::SessionRequest wanted;
  wanted.description = file;
  wanted.library = request.library;
  wanted.routines = request.routines;
  const auto session = driver_feature::host::Session::open(wanted);
  if (!imported.empty()) unlink(imported.c_str());
  if (!session) return {"0", "0", "is not loaded: " + session.error().text + "\n"};
  const Capabilities capabilities =
      driver_feature::ipp::capabilitiesOf((*session)->model(), (*session)->additions());
  auto copy = driver_feature::ipp::capabilitiesFromJson(toJson(capabilities));
  if (!copy) return {"0", "0", "JSON is not read back\n"};
  if (toJson(*copy) != toJson(capabilities)) return {"0", "0", "JSON has changed\n"};
  const Translation translation(std::move(*copy));
  if (request.prints) print(translation);
  return driver_feature::testing::examineAdvertised((*session)->model(), translation);
}

struct Sums {
  long files = 0;
  long features = 0;
  long values = 0;
  long faults = 0;
};

void examineFile(const Request& request, const std::string& file, Sums& sums) {
  const auto result = driver_feature::host::runInChild(driver_feature::host::ChildStreams::kShared,
                                                       [&] { return examine(request, file); });
  ++sums.files;
  if (!result || result->size() != 3) {
    std::cout << file << ": ends the process\n";
    ++sums.faults;
    return;
  }
  sums.features += std::stol((*result)[0]);
  sums.values += std::stol((*result)[1]);
  const std::string& faults = (*result)[2];
  for (std::size_t at = 0; at < faults.size();) {
    const std::size_t end = faults.find('\n', at);
    std::cout << file << ": " << faults.substr(at, end - at) << '\n';
    ++sums.faults;
    at = end + 1;
  }
}

}  // namespace

int main(int count, char** arguments) {
  Request request;
  Sums sums;
  for (int i = 1; i < count; ++i) {
    const std::string argument = arguments[i];
    if (argument == "--library" && i + 1 < count) {
      request.library = arguments[++i];
    } else if (argument == "--routines" && i + 1 < count) {
      request.routines.emplace_back(arguments[++i]);
    } else if (argument == "--print") {
      request.prints = true;
    } else if (argument == "-") {
      std::string line;
      while (std::getline(std::cin, line)) examineFile(request, line, sums);
    } else {
      examineFile(request, argument, sums);
    }
  }
  std::cout << sums.files << " descriptions, " << sums.features << " features, " << sums.values
            << " values: " << sums.faults << " faults\n";
  return sums.files > 0 && sums.faults == 0 ? 0 : 1;
}
