// A page's process as its server sees it.
#ifndef TESTS_PAGE_PROCESS_PAGE_FIXTURE_H_
#define TESTS_PAGE_PROCESS_PAGE_FIXTURE_H_

#include <string>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "host/page/page_process.h"

namespace driver_feature::testing {

using Json = nlohmann::json;

// A process of its own, since there is one set of features in each.
class PageClient {
 public:
  explicit PageClient(const page::PageRequest& request);
  ~PageClient();
  PageClient(const PageClient&) = delete;
  PageClient& operator=(const PageClient&) = delete;

  // The first frame.
  const Json& greeting() const { return greeting_; }

  // The reply to a request. A null value when the process has ended.
  Json ask(const Json& request) { return askText(request.dump()); }
  Json askText(const std::string& request);

  // The outputs with all the changes that replies have told of since the first state.
  const Json& outputs() const { return outputs_; }
  const Json& output(const char* name) { return outputs_[name]; }

  // The status of the process, as waitpid() gives it, once its socket is closed.
  int end();

 private:
  Json next();
  void takeOutputs(const Json& reply);

  int socket_ = -1;
  int process_ = -1;
  std::string arrived_;
  Json greeting_;
  Json outputs_;
};

// With the library of the build and the routines of the shipped printers.
page::PageRequest requestFor(const std::string& description);

// The shipped printers.
page::PageRequest officeLaser();
page::PageRequest labelPrinter();

// The text as a file in the folder for temporary files of tests, by the name of the
// test; returns its path.
std::string writtenFile(const std::string& name, const std::string& text);

// A description with these elements and a base, and what comes after its features.
std::string description(const std::string& elements, const std::string& additions = "");

// The three outputs, as a page shows them or as a POSIX shell makes them with the
// command and the built program.
struct Outputs {
  std::string ps;
  std::string pjl;
  std::string ticket;

  bool operator==(const Outputs&) const = default;
};
Outputs outputsOf(const Json& state);
Outputs runCommand(std::string command);

}  // namespace driver_feature::testing

#endif  // TESTS_PAGE_PROCESS_PAGE_FIXTURE_H_
