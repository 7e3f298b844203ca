// The platform's ordered map of names to texts: the attributes of an element,
// the values of a record, or a list of feature names. Names are ordered byte
// by byte and occur once.
#ifndef PLATFORM_COMMON_API_ATTRIBUTE_MAP_H_
#define PLATFORM_COMMON_API_ATTRIBUTE_MAP_H_

#include <map>
#include <string>

namespace driver_feature {
class AttributeFiller;
}

class AttributeMap {
 public:
  AttributeMap();

  void clear();
  long size() const;

  // Read the text under `name`, converted. True when the name is present and
  // its whole text converts; the result is then in `value`. Otherwise, with a
  // fallback, stores the fallback and returns true; without one (null)
  // returns false and leaves `value` unchanged. A text that is present but does
  // not convert is also logged at level 3. A bool is "true", "false", "1" or
  // "0"; an int a decimal 32-bit number; a double a finite decimal number with
  // a point and perhaps an exponent, in every locale of the process. Blanks,
  // and signs other than "-", are not accepted.
  bool loadMapVariable(const std::string& name, std::string& value,
                       const std::string* fallback) const;
  bool loadMapVariable(const std::string& name, bool& value, const bool* fallback) const;
  bool loadMapVariable(const std::string& name, int& value, const int* fallback) const;
  bool loadMapVariable(const std::string& name, double& value, const double* fallback) const;

  // Copies the entry at a position, counted from 0 in the order of the names.
  // Returns false, with both texts unchanged, if there is none.
  bool fetchAttributeValueByIndex(const long& index, std::string& name, std::string& value) const;

  // The text under `name`, added empty when it is absent.
  std::string& operator[](const std::string& name);

 private:
  friend class driver_feature::AttributeFiller;  // Of the parser.
  void recallNames();

  std::map<std::string, std::string> entries_;
};

#endif  // PLATFORM_COMMON_API_ATTRIBUTE_MAP_H_
