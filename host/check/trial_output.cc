#include "host/check/trial_output.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <set>
#include <string>

#include "Log.h"

#include "host/base/child_process.h"
#include "host/check/rules.h"
#include "host/session/host_routines.h"
#include "host/session/output_form.h"
#include "host/session/routine_calls.h"
#include "host/session/routine_look_up.h"

namespace driver_feature::check {

namespace {

constexpr unsigned kOutputSeconds = 10;

struct FormRow {
  const char* attribute;
  host::OutputForm form;
};

constexpr FormRow kForms[] = {{"AddPJLCallbackRoutine", host::OutputForm::kPjl},
                              {"AddPSCallbackRoutine", host::OutputForm::kPostScript},
                              {"AddVORNCallbackRoutine", host::OutputForm::kTicket}};

void dropLine(int, const char*, const char*, std::size_t, void*) {}

int write(const host::Plugin& plugin, void* handle, host::OutputForm form) {
  ::alarm(kOutputSeconds);
  SetLogHandler(&dropLine, nullptr);
  plugin.setUpdateCallback(&DriverFeatureHostUpdate);
  host::noteRoutineCalls(handle, "");
  if (plugin.handOver(handle) != 1) return 1;
  plugin.completeCreation();
  host::outputOf(plugin.features(), form);
  return 0;
}

// What a routine has done, with what to do after a semicolon; empty if none has
// done anything wrong.
std::string faultOf(const host::RoutineRecord& record, int status) {
  std::string thrown = describeThrow(record);
  if (!thrown.empty()) return thrown;
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM && record.running.front() != '\0') {
    return "the routine \"" + std::string(record.running.data()) +
           "\" of the description does not return within " + std::to_string(kOutputSeconds) +
           " seconds; let it return";
  }
  return describeRoutineEnd(record, status);
}

// The attributes of one form that name routines which can be called.
std::set<std::string> routinesOf(const host::Element& description, const char* name) {
  std::set<std::string> routines;
  forEachRoutineName(description, [&](const host::Element&, const host::Attribute& attribute) {
    if (attribute.name != name) return;
    const host::RoutineLookUp routine = host::lookUpRoutine(attribute.value);
    if (routine.kind == host::RoutineKind::kRoutine) routines.insert(attribute.value);
  });
  return routines;
}

// The routine may have led to another one that the description does not name
// for this form.
host::Position placeOf(const host::Element& description, const std::string& routine) {
  host::Position place = description.position;
  bool found = false;
  forEachRoutineName(description, [&](const host::Element&, const host::Attribute& attribute) {
    if (found || attribute.value != routine) return;
    place = attribute.position;
    found = true;
  });
  return place;
}

}  // namespace

host::Result<> tryOutputs(const host::Plugin& plugin, void* handle,
                          const host::Element& description, Findings& findings) {
  for (const FormRow& row : kForms) {
    if (routinesOf(description, row.attribute).empty()) continue;
    const host::SharedRoutineRecord record;
    auto child = host::ChildProcess::start(host::ChildStreams::kDropped,
                                           [&](int) { return write(plugin, handle, row.form); });
    if (!child) return failureOf(child);
    const int status = child->wait();
    const std::string fault = faultOf(*record, status);
    if (fault.empty()) continue;
    const bool hasThrown = (*record).thrower.front() != '\0';
    const std::string routine = hasThrown ? (*record).thrower.data() : (*record).running.data();
    const std::size_t remedy = fault.rfind("; ");
    findings.push_back({Code::kFailingRoutine,
                        placeOf(description, routine),
                        "when the output was tried, " + fault.substr(0, remedy),
                        fault.substr(remedy + 2),
                        {}});
  }
  return {};
}

}  // namespace driver_feature::check
