// Documents that arrive compressed.
#ifndef PROGRAMS_PRINTER_INFLATION_H_
#define PROGRAMS_PRINTER_INFLATION_H_

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace driver_feature::printer {

// Whether IPP's attribute "compression" may have this value, other than "none".
bool isCompression(const std::string& word);

class Inflation final {
 public:
  // `word` is one of isCompression().
  explicit Inflation(const std::string& word);
  ~Inflation();
  Inflation(const Inflation&) = delete;
  Inflation& operator=(const Inflation&) = delete;

  // Takes more of the compressed document, and calls `take` for each piece of the
  // document, none of which is long, until it returns false. False as soon as the
  // document turns out to be damaged.
  bool inflate(std::string_view bytes, const std::function<bool(std::string_view)>& take);

  // Whether the end of the document has been reached.
  bool isWhole() const { return isWhole_; }

 private:
  struct Stream;

  std::unique_ptr<Stream> stream_;
  bool isWhole_ = false;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_INFLATION_H_
