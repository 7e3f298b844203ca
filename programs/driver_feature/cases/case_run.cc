#include "programs/driver_feature/cases/case_run.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "host/base/standard_streams.h"
#include "host/session/routine_calls.h"
#include "host/session/routine_runs.h"
#include "host/settings/changes.h"
#include "programs/common/console.h"
#include "programs/driver_feature/outputs.h"

namespace driver_feature::cli {

namespace {

using Texts = std::vector<std::string>;

// What a case says must not depend on where the folder is and how the command
// line names it, nor on the lines of the description: paths begin without the
// folder, and places in the description are left out.
std::string withoutPlaces(std::string text, const CaseFolder& folder) {
  const std::string prefix = folder.pathOf("");
  for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos; ++at) {
    const bool beginsPath = at == 0 || std::strchr(" \n(\"", text[at - 1]) != nullptr;
    if (beginsPath) text.erase(at, prefix.size());
  }
  const std::string place = folder.description + ":";
  for (std::size_t at = 0; (at = text.find(place, at)) != std::string::npos;) {
    at += place.size();
    const std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
    if (end > at) text.erase(at - 1, end - at + 1);
  }
  return text;
}

std::string linesOf(const host::Problem& problem) {
  std::string lines = describe(problem) + "\n";
  for (const host::Problem& more : problem.more) lines += describe(more) + "\n";
  return lines;
}

bool isRefusal(const host::Problem& problem) {
  return problem.kind == host::Problem::Kind::kRefused ||
         problem.kind == host::Problem::Kind::kMalformed;
}

class Runner {
 public:
  Runner(const CaseFolder& folder, bool allowsControlCharacters, host::Session& session)
      : folder_(folder), allowsControlCharacters_(allowsControlCharacters), session_(session) {}

  // The failure and the outputs of each case.
  Texts runAll() {
    Texts all;
    for (const std::string& name : folder_.names) {
      auto texts = host::takeFromRoutines([&] { return run(name); });
      if (!texts) texts = Texts{texts.error().text, "", "", "", ""};
      all.insert(all.end(), texts->begin(), texts->end());
    }
    session_.log().discard();
    return all;
  }

 private:
  // In a copy of the process.
  Texts run(const std::string& name) {
    std::string log;
    session_.log().setReport([&log](const std::string& line) { log += line + "\n"; });
    host::Changes changes;
    changes.files = {folder_.pathOf(name + ".conf")};
    changes.allowControlCharacters = allowsControlCharacters_;
    Texts texts(1 + kCaseOutputs.size());
    if (const auto made = makeChanges(session_, changes); !made) {
      std::string& reason = isRefusal(made.error()) ? log : texts[0];
      reason += linesOf(made.error());
    } else {
      writeOutputs(texts);
    }
    texts.back() = withoutPlaces(std::move(log), folder_);
    return texts;
  }

  void writeOutputs(Texts& texts) {
    auto outputs = composeOutputs(
        session_,
        {{host::OutputForm::kPostScript}, {host::OutputForm::kPjl}, {host::OutputForm::kTicket}});
    if (!outputs) {
      texts[0] = linesOf(outputs.error());
      return;
    }
    for (std::size_t i = 0; i < outputs->size(); ++i) texts[i + 1] = std::move((*outputs)[i]);
  }

  const CaseFolder& folder_;
  bool allowsControlCharacters_;
  host::Session& session_;
};

}  // namespace

host::Result<std::vector<CaseRun>> runCases(const CaseFolder& folder,
                                            const host::SessionRequest& request,
                                            bool allowsControlCharacters) {
  const host::SharedRoutineRecord record;
  // The library keeps one set of features for each process, and may end it.
  auto texts = host::takeFromRoutines([&]() -> Texts {
    const host::StandardOutputDiversion diversion;
    auto session = host::Session::open(request);
    if (session) return Runner(folder, allowsControlCharacters, **session).runAll();
    printProblem(session.error());
    return {};
  });
  if (!texts) return failureOf(texts);
  std::vector<CaseRun> runs;
  for (auto text = texts->begin(); text != texts->end();) {
    CaseRun& run = runs.emplace_back();
    run.failure = std::move(*text++);
    for (std::string& output : run.outputs) output = std::move(*text++);
  }
  return runs;
}

}  // namespace driver_feature::cli
