#include "programs/printer/ipp_message.h"

#include <algorithm>
#include <cstring>

namespace driver_feature::printer {

namespace {

constexpr std::size_t kLongest = 1 << 20;
constexpr std::size_t kMostValues = 20000;
constexpr int kDeepest = 16;

std::size_t lengthAt(std::string_view bytes, std::size_t place) {
  return static_cast<std::size_t>(static_cast<unsigned char>(bytes[place])) << 8 |
         static_cast<unsigned char>(bytes[place + 1]);
}

ssize_t readNext(void* context, ipp_uchar_t* buffer, std::size_t size) {
  auto& rest = *static_cast<std::string_view*>(context);
  const std::size_t count = std::min(size, rest.size());
  std::memcpy(buffer, rest.data(), count);
  rest.remove_prefix(count);
  return static_cast<ssize_t>(count);
}

ssize_t append(void* context, ipp_uchar_t* buffer, std::size_t size) {
  static_cast<std::string*>(context)->append(reinterpret_cast<const char*>(buffer), size);
  return static_cast<ssize_t>(size);
}

}  // namespace

std::size_t AttributeEnd::find(std::string_view message) {
  while (place_ < message.size() && !isTooMuch_) {
    const auto tag = static_cast<unsigned char>(message[place_]);
    if (tag == IPP_TAG_END) return place_ + 1;
    if (tag < IPP_TAG_UNSUPPORTED_VALUE) {
      ++place_;
      continue;
    }
    if (message.size() < place_ + 3) break;
    const std::size_t value = place_ + 3 + lengthAt(message, place_ + 1);
    if (message.size() < value + 2) break;
    const std::size_t next = value + 2 + lengthAt(message, value);
    if (message.size() < next) break;
    if (tag == IPP_TAG_BEGIN_COLLECTION) ++depth_;
    if (tag == IPP_TAG_END_COLLECTION) --depth_;
    isTooMuch_ = ++values_ > kMostValues || depth_ > kDeepest || depth_ < 0;
    place_ = next;
  }
  isTooMuch_ = isTooMuch_ || message.size() > kLongest;
  return 0;
}

IppPointer readIpp(std::string_view bytes) {
  IppPointer message(::ippNew(), &::ippDelete);
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA) {
    state = ::ippReadIO(&bytes, &readNext, 1, nullptr, message.get());
    if (state == IPP_STATE_ERROR) return noIpp();
  }
  return message;
}

std::string ippBytes(ipp_t* message) {
  std::string bytes;
  ::ippSetState(message, IPP_STATE_IDLE);
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA) {
    state = ::ippWriteIO(&bytes, &append, 1, nullptr, message);
    if (state == IPP_STATE_ERROR) return "";
  }
  return bytes;
}

std::string textOf(ipp_t* message, const char* name, ipp_tag_t group) {
  ipp_attribute_t* attribute = ::ippFindAttribute(message, name, group);
  const char* text = attribute == nullptr ? nullptr : ::ippGetString(attribute, 0, nullptr);
  return text == nullptr ? "" : text;
}

bool booleanOf(ipp_t* message, const char* name, bool otherwise) {
  ipp_attribute_t* attribute = ::ippFindAttribute(message, name, IPP_TAG_BOOLEAN);
  return attribute == nullptr ? otherwise : ::ippGetBoolean(attribute, 0) != 0;
}

int integerOf(ipp_t* message, const char* name, int otherwise) {
  ipp_attribute_t* attribute = ::ippFindAttribute(message, name, IPP_TAG_INTEGER);
  return attribute == nullptr ? otherwise : ::ippGetInteger(attribute, 0);
}

}  // namespace driver_feature::printer
