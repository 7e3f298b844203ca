// The functions of libcups that the rooms use, each of which loads the library
// when it is called for the first time.
//
// With libcups come some thirty other libraries, for networks and security. To
// load them takes several times as long as all that most commands and most jobs
// do. So no program is linked with libcups; what never calls one of these
// functions never loads it.

#include <cups/cups.h>
#include <cups/file.h>
#include <cups/ppd.h>

#include "host/base/late_library.h"

namespace {

// Of the library's interface that its headers describe.
constexpr driver_feature::host::LateLibrary kLibrary("libcups.so.2", "libcups2");

template <class Function>
Function* loaded(const char* name) {
  return kLibrary.function<Function>(name);
}

}  // namespace

// The headers call some parameters by names of another style.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int cupsAddOption(const char* name, const char* value, int count, cups_option_t** options) {
  static const auto call = loaded<decltype(cupsAddOption)>("cupsAddOption");
  return call(name, value, count, options);
}

void* cupsArrayFirst(cups_array_t* array) {
  static const auto call = loaded<decltype(cupsArrayFirst)>("cupsArrayFirst");
  return call(array);
}

void* cupsArrayNext(cups_array_t* array) {
  static const auto call = loaded<decltype(cupsArrayNext)>("cupsArrayNext");
  return call(array);
}

int cupsFileClose(cups_file_t* file) {
  static const auto call = loaded<decltype(cupsFileClose)>("cupsFileClose");
  return call(file);
}

cups_file_t* cupsFileOpen(const char* path, const char* mode) {
  static const auto call = loaded<decltype(cupsFileOpen)>("cupsFileOpen");
  return call(path, mode);
}

ssize_t cupsFileRead(cups_file_t* file, char* buffer, size_t bytes) {
  static const auto call = loaded<decltype(cupsFileRead)>("cupsFileRead");
  return call(file, buffer, bytes);
}

void cupsFreeOptions(int count, cups_option_t* options) {
  static const auto call = loaded<decltype(cupsFreeOptions)>("cupsFreeOptions");
  call(count, options);
}

int cupsMarkOptions(ppd_file_t* ppd, int count, cups_option_t* options) {
  static const auto call = loaded<decltype(cupsMarkOptions)>("cupsMarkOptions");
  return call(ppd, count, options);
}

int cupsParseOptions(const char* text, int count, cups_option_t** options) {
  static const auto call = loaded<decltype(cupsParseOptions)>("cupsParseOptions");
  return call(text, count, options);
}

void ppdClose(ppd_file_t* ppd) {
  static const auto call = loaded<decltype(ppdClose)>("ppdClose");
  call(ppd);
}

int ppdEmitJCL(ppd_file_t* ppd, FILE* file, int job, const char* user, const char* title) {
  static const auto call = loaded<decltype(ppdEmitJCL)>("ppdEmitJCL");
  return call(ppd, file, job, user, title);
}

int ppdEmitJCLEnd(ppd_file_t* ppd, FILE* file) {
  static const auto call = loaded<decltype(ppdEmitJCLEnd)>("ppdEmitJCLEnd");
  return call(ppd, file);
}

char* ppdEmitString(ppd_file_t* ppd, ppd_section_t section, float order) {
  static const auto call = loaded<decltype(ppdEmitString)>("ppdEmitString");
  return call(ppd, section, order);
}

const char* ppdErrorString(ppd_status_t status) {
  static const auto call = loaded<decltype(ppdErrorString)>("ppdErrorString");
  return call(status);
}

ppd_attr_t* ppdFindAttr(ppd_file_t* ppd, const char* name, const char* spec) {
  static const auto call = loaded<decltype(ppdFindAttr)>("ppdFindAttr");
  return call(ppd, name, spec);
}

ppd_choice_t* ppdFindChoice(ppd_option_t* option, const char* choice) {
  static const auto call = loaded<decltype(ppdFindChoice)>("ppdFindChoice");
  return call(option, choice);
}

ppd_coption_t* ppdFindCustomOption(ppd_file_t* ppd, const char* keyword) {
  static const auto call = loaded<decltype(ppdFindCustomOption)>("ppdFindCustomOption");
  return call(ppd, keyword);
}

ppd_choice_t* ppdFindMarkedChoice(ppd_file_t* ppd, const char* keyword) {
  static const auto call = loaded<decltype(ppdFindMarkedChoice)>("ppdFindMarkedChoice");
  return call(ppd, keyword);
}

ppd_attr_t* ppdFindNextAttr(ppd_file_t* ppd, const char* name, const char* spec) {
  static const auto call = loaded<decltype(ppdFindNextAttr)>("ppdFindNextAttr");
  return call(ppd, name, spec);
}

ppd_option_t* ppdFindOption(ppd_file_t* ppd, const char* keyword) {
  static const auto call = loaded<decltype(ppdFindOption)>("ppdFindOption");
  return call(ppd, keyword);
}

ppd_cparam_t* ppdFirstCustomParam(ppd_coption_t* option) {
  static const auto call = loaded<decltype(ppdFirstCustomParam)>("ppdFirstCustomParam");
  return call(option);
}

int ppdIsMarked(ppd_file_t* ppd, const char* keyword, const char* choice) {
  static const auto call = loaded<decltype(ppdIsMarked)>("ppdIsMarked");
  return call(ppd, keyword, choice);
}

ppd_status_t ppdLastError(int* line) {
  static const auto call = loaded<decltype(ppdLastError)>("ppdLastError");
  return call(line);
}

void ppdMarkDefaults(ppd_file_t* ppd) {
  static const auto call = loaded<decltype(ppdMarkDefaults)>("ppdMarkDefaults");
  call(ppd);
}

ppd_cparam_t* ppdNextCustomParam(ppd_coption_t* option) {
  static const auto call = loaded<decltype(ppdNextCustomParam)>("ppdNextCustomParam");
  return call(option);
}

ppd_file_t* ppdOpenFd(int descriptor) {
  static const auto call = loaded<decltype(ppdOpenFd)>("ppdOpenFd");
  return call(descriptor);
}

ppd_file_t* ppdOpenFile(const char* path) {
  static const auto call = loaded<decltype(ppdOpenFile)>("ppdOpenFile");
  return call(path);
}

ppd_size_t* ppdPageSize(ppd_file_t* ppd, const char* name) {
  static const auto call = loaded<decltype(ppdPageSize)>("ppdPageSize");
  return call(ppd, name);
}

pwg_media_t* pwgMediaForPPD(const char* name) {
  static const auto call = loaded<decltype(pwgMediaForPPD)>("pwgMediaForPPD");
  return call(name);
}

pwg_media_t* pwgMediaForPWG(const char* name) {
  static const auto call = loaded<decltype(pwgMediaForPWG)>("pwgMediaForPWG");
  return call(name);
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
