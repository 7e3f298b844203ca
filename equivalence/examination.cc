#include "equivalence/examination.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>

#include "equivalence/comparison.h"
#include "equivalence/equal_orders.h"
#include "equivalence/job.h"
#include "equivalence/job_options.h"
#include "equivalence/peer.h"
#include "equivalence/subject.h"
#include "equivalence/vectors.h"
#include "equivalence/whole_jobs.h"
#include "host/check/check.h"
#include "host/ppd/import/import.h"
#include "programs/common/console.h"

namespace driver_feature::equivalence {

namespace {

using Json = nlohmann::json;

std::uint64_t digestOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return digestOf(bytes);
}

class Examination {
 public:
  Examination(const ExaminationRequest& request,
              const std::function<void(const std::string& phase)>& enter)
      : request_(request), enter_(enter) {}

  Json run() {
    record_ = {{"causes", Json::array()}, {"differences", Json::array()}};
    if (openPeer() && import() && check() && load()) compareAll();
    if (subject_ && !request_.programs.empty()) compareWholeJobs();
    return record_;
  }

 private:
  bool openPeer() {
    enter_("open");
    auto peer = Peer::open(request_.file);
    if (!peer) return fail("refused by libcups", peer.error().text);
    peer_ = std::move(*peer);
    const PpdFigures figures = peer_->figures();
    record_["options"] = figures.options;
    record_["choices"] = figures.choices;
    record_["jcl_options"] = figures.jclOptions;
    record_["custom_options"] = figures.customOptions;
    record_["longest_code"] = figures.longestCode;
    record_["escapes"] = figures.hasEscapes;
    record_["high_bytes"] = figures.hasHighBytes;
    return true;
  }

  bool import() {
    description_ = request_.description;
    if (!description_.empty()) return true;
    enter_("import");
    const auto imported = ppd::importPpd(request_.file);
    if (!imported) return fail("import", imported.error().text);
    std::ofstream file(request_.importTo, std::ios::binary);
    file << imported->text;
    file.close();
    if (!file) return fail("import", request_.importTo + ": cannot be written");
    record_["losses"] = imported->losses.count(ppd::LossKind::kOption);
    description_ = request_.importTo;
    return true;
  }

  // Warnings are counted, but are not failures.
  bool check() {
    enter_("check");
    const auto plugin = host::Plugin::load(request_.library);
    if (!plugin) return fail("library", plugin.error().text);
    for (const std::string& routines : request_.routines) {
      const host::Result<> loaded = host::loadRoutines(routines);
      if (!loaded) return fail("library", loaded.error().text);
    }
    // The outputs are compared in steps of their own.
    const auto checked = check::checkFile(description_, *plugin, check::Trial::kLoad);
    if (!checked) return fail("library", checked.error().text);
    const check::FileReport& report = *checked;
    record_["check_errors"] = countOf(report.findings, check::Severity::kError);
    record_["check_warnings"] = countOf(report.findings, check::Severity::kWarning);
    for (const check::Finding& finding : report.findings) {
      const check::CodeRow& row = rowOf(finding.code);
      if (row.severity != check::Severity::kError) continue;
      fail("check", std::string(row.name) + " " + finding.sentence);
      break;
    }
    return report.usable;
  }

  bool load() {
    enter_("load");
    host::SessionRequest session;
    session.description = description_;
    session.library = request_.library;
    session.routines = request_.routines;
    session.detail = host::LogDetail::kErrors;
    session.report = cli::printError;
    auto loaded = Subject::load(session);
    if (!loaded) return fail("load", loaded.error().text);
    subject_ = std::move(*loaded);
    return true;
  }

  void compareAll() {
    enter_("compare");
    peer_->settle();
    compare("defaults", "");
    Random random(digestOfFile(request_.file) ^ request_.seed);
    for (const Marks& marks : mediaMarks(*peer_, random)) compareMarked("media", marks);
    for (int i = 1; i <= request_.vectors; ++i) {
      compareMarked("vector " + std::to_string(i), randomMarks(*peer_, random));
    }
    compareRestored();
  }

  // Marks the defaults and then the choices, and makes the same choices here.
  void compareMarked(const std::string& vector, const Marks& marks) {
    peer_->markDefaults();
    peer_->mark(marks);
    peer_->settle();
    if (const auto done = subject_->set(peer_->settings()); !done) {
      fail("features", done.error().text + " (" + describe(marks) + ")");
      return;
    }
    compare(vector, describe(marks));
  }

  // What the library restores is compared with its own first output.
  void compareRestored() {
    const OurOutput before = first_;
    subject_->restoreDefaults();
    if (subject_->postScript() != before.postScript || subject_->pjl() != before.pjl) {
      fail("restored defaults", "the output is not that of the defaults as they were loaded");
    }
  }

  void compareWholeJobs() {
    enter_("whole jobs");
    const auto opened = WholeJobs::open({request_.programs, request_.pstops, request_.file,
                                         description_, request_.library, request_.routines},
                                        peer_->file());
    if (!opened) {
      fail("whole job", opened.error().text);
      return;
    }
    WholeJobs& jobs = **opened;
    Random random(digestOfFile(request_.file) ^ ~request_.seed);
    std::string options;
    for (int i = 0; i <= request_.wholeVectors; ++i) {
      std::vector<Difference> differences;
      if (const auto done = jobs.compare(options, differences); !done) {
        fail("whole job", done.error().text + ": " + options);
      }
      for (Difference& difference : differences) {
        const auto section =
            sectionOfEquals(peer_->file(), difference.peerText, difference.ourText);
        if (section) difference.part = *section;
        addDifference(section ? "order of equals in " : "difference in ",
                      "whole job " + std::to_string(i), options, difference);
      }
      options = jobOptions(*peer_, randomMarks(*peer_, random));
    }
    record_["whole_jobs"] = 2 * (request_.wholeVectors + 1);
    record_["whole_bytes"] = jobs.bytes();
    record_["fronts"] = jobs.hasFront() ? 1 : 0;
  }

  void compare(const std::string& vector, const std::string& marks) {
    const JobTexts texts = peer_->texts();
    const OurOutput output = {subject_->postScript(), subject_->pjl(), subject_->jclEnd()};
    ++vectors_;
    bytes_ += sizeOf(texts);
    record_["vectors"] = vectors_;
    record_["bytes"] = bytes_;
    if (vectors_ == 1) {
      first_ = output;
      if (!request_.jobFile.empty()) writeJob(output, request_.jobFile);
    }
    for (const Difference& difference : compareTexts(texts, output)) {
      const bool isOrder =
          !difference.peerText.empty() &&
          differsInEqualsOnly(peer_->file(), difference.peerText, difference.ourText);
      addDifference(isOrder ? "order of equals in " : "difference in ", vector, marks, difference);
    }
  }

  void addDifference(const std::string& kind, const std::string& vector, const std::string& marks,
                     const Difference& difference) {
    record_["difference_count"] = ++differences_;
    fail(kind + difference.part, "");
    if (!reported_.insert(kind + difference.part).second) return;
    record_["differences"].push_back({{"part", difference.part},
                                      {"vector", vector},
                                      {"marks", marks},
                                      {"offset", difference.offset},
                                      {"peer_size", difference.peerText.size()},
                                      {"our_size", difference.ourText.size()},
                                      {"peer", difference.peer},
                                      {"ours", difference.ours}});
  }

  bool fail(const std::string& cause, const std::string& detail) {
    Json& causes = record_["causes"];
    if (causes.empty()) record_["detail"] = detail;
    if (std::find(causes.begin(), causes.end(), cause) == causes.end()) causes.push_back(cause);
    return false;
  }

  const ExaminationRequest& request_;
  const std::function<void(const std::string& phase)>& enter_;
  Json record_;
  std::string description_;
  std::unique_ptr<Peer> peer_;
  std::unique_ptr<Subject> subject_;
  OurOutput first_;
  long vectors_ = 0;
  std::size_t bytes_ = 0;
  long differences_ = 0;
  std::set<std::string> reported_;  // Causes whose first difference is recorded.
};

}  // namespace

nlohmann::json examine(const ExaminationRequest& request,
                       const std::function<void(const std::string& phase)>& enter) {
  return Examination(request, enter).run();
}

}  // namespace driver_feature::equivalence
