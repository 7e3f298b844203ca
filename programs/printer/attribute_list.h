// Attributes of a printer, added by their values.
#ifndef PROGRAMS_PRINTER_ATTRIBUTE_LIST_H_
#define PROGRAMS_PRINTER_ATTRIBUTE_LIST_H_

#include <cups/ipp.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace driver_feature::printer {

class AttributeList final {
 public:
  explicit AttributeList(ipp_t* message) : message_(message) {}

  void text(const char* name, const std::string& value) { one(IPP_TAG_TEXT, name, value); }
  void name(const char* name, const std::string& value) { one(IPP_TAG_NAME, name, value); }
  void uri(const char* name, const std::string& value) { one(IPP_TAG_URI, name, value); }
  void keyword(const char* name, const std::string& value) { one(IPP_TAG_KEYWORD, name, value); }
  void keywords(const char* name, const std::vector<const char*>& values) {
    ::ippAddStrings(message_, IPP_TAG_PRINTER, IPP_TAG_KEYWORD, name,
                    static_cast<int>(values.size()), nullptr, values.data());
  }
  void strings(ipp_tag_t type, const char* name, const std::vector<const char*>& values) {
    ::ippAddStrings(message_, IPP_TAG_PRINTER, type, name, static_cast<int>(values.size()), nullptr,
                    values.data());
  }
  void integer(const char* name, int value) {
    ::ippAddInteger(message_, IPP_TAG_PRINTER, IPP_TAG_INTEGER, name, value);
  }
  void enumeration(const char* name, int value) {
    ::ippAddInteger(message_, IPP_TAG_PRINTER, IPP_TAG_ENUM, name, value);
  }
  void enumerations(const char* name, const std::vector<int>& values) {
    ::ippAddIntegers(message_, IPP_TAG_PRINTER, IPP_TAG_ENUM, name, static_cast<int>(values.size()),
                     values.data());
  }
  void range(const char* name, int lowest, int highest) {
    ::ippAddRange(message_, IPP_TAG_PRINTER, name, lowest, highest);
  }
  void boolean(const char* name, bool value) {
    ::ippAddBoolean(message_, IPP_TAG_PRINTER, name, static_cast<char>(value));
  }
  void unknown(const char* name) {
    ::ippAddOutOfBand(message_, IPP_TAG_PRINTER, IPP_TAG_UNKNOWN, name);
  }
  bool has(const char* name) const {
    return ::ippFindAttribute(message_, name, IPP_TAG_ZERO) != nullptr;
  }

 private:
  void one(ipp_tag_t type, const char* name, const std::string& value) {
    ::ippAddString(message_, IPP_TAG_PRINTER, type, name, nullptr, value.c_str());
  }

  ipp_t* message_;
};

// A time in seconds as IPP writes it.
inline const ipp_uchar_t* dateOf(std::int64_t time) {
  return ::ippTimeToDate(static_cast<time_t>(time));
}

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_ATTRIBUTE_LIST_H_
