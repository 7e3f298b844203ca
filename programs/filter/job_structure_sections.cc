// How the structure of a job is written: its own lines, and the sections
// between them.

#include "programs/filter/job_structure.h"

namespace driver_feature::filter {

bool JobStructure::pass(const JobLine& line) {
  sink_.put(line.text);
  sink_.put(line.end);
  lineHasEnd_ = !line.end.empty();
  return true;
}

void JobStructure::passAndWrite(const JobLine& line, std::string_view text) {
  pass(line);
  if (!lineHasEnd_ && !text.empty()) sink_.put("\n");
  lineHasEnd_ = true;
  sink_.put(text);
}

void JobStructure::writeBlock(const std::string& name, std::string_view text) {
  if (text.empty()) return;
  sink_.put("%%Begin" + name + "\n");
  sink_.put(text);
  sink_.put("%%End" + name + "\n");
}

// The job's own prolog, if there is one, goes on in the added one.
void JobStructure::openProlog() {
  place_ = Place::kProlog;
  if (sections_.prolog.empty()) return;
  sink_.put("%%BeginProlog\n");
  sink_.put(sections_.prolog);
  ownProlog_ = true;
}

void JobStructure::closeProlog() {
  if (ownProlog_) sink_.put("%%EndProlog\n");
  ownProlog_ = false;
  place_ = Place::kBehindProlog;
}

void JobStructure::openSetup() {
  place_ = Place::kSetup;
  isSetUp_ = true;
  // A job that promises no pages may have none that a comment begins.
  std::string text = sections_.documentSetup;
  if (!promisesPages_) text += sections_.pageSetup;
  if (text.empty()) return;
  sink_.put("%%BeginSetup\n");
  sink_.put(text);
  ownSetup_ = true;
}

void JobStructure::closeSetup() {
  if (ownSetup_) sink_.put("%%EndSetup\n");
  ownSetup_ = false;
  place_ = Place::kBehindSetup;
}

void JobStructure::writeWholeSetup() {
  writeBlock("Setup", sections_.documentSetup);
  isSetUp_ = true;
  place_ = Place::kBehindSetup;
}

void JobStructure::writeUnstructured() {
  writeBlock("Prolog", sections_.prolog);
  writeBlock("Setup", sections_.documentSetup + sections_.pageSetup);
  isSetUp_ = true;
  place_ = Place::kBehindSetup;
}

}  // namespace driver_feature::filter
