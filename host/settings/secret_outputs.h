// Values of features that a description marks as "Encrypted", in outputs that are
// shown.
#ifndef HOST_SETTINGS_SECRET_OUTPUTS_H_
#define HOST_SETTINGS_SECRET_OUTPUTS_H_

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace driver_feature::host {

class SecretOutputs {
 public:
  // The values that the named features have in the settings texts.
  SecretOutputs(const std::vector<std::string>& names,
                const std::vector<std::string_view>& settings);

  // The text with a mask in place of each of the values, wherever it is: as it is,
  // as a PostScript string and an XML attribute spell it, and in hexadecimal. A
  // routine that writes it in another form is not seen through. Masks of different
  // values of a feature have different numbers, as in maskSettings().
  std::string masked(std::string_view text) const;

  // Where masked() puts which mask, in the order of the text.
  struct Place {
    std::size_t offset = 0;
    std::size_t size = 0;
    std::string_view mask;  // Lives as long as this object.
  };
  std::vector<Place> placesIn(std::string_view text) const;

 private:
  struct Form {
    std::string spelled;
    std::string mask;
  };

  void addForms(const std::string& value, const std::string& mask);
  const Form* formAt(std::string_view text) const;

  bool isEmpty_ = true;
  std::array<std::vector<Form>, 256> forms_;  // By their first byte, long ones first.
};

}  // namespace driver_feature::host

#endif  // HOST_SETTINGS_SECRET_OUTPUTS_H_
