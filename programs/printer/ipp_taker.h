// The body of an HTTP request: an IPP request and perhaps a document.
#ifndef PROGRAMS_PRINTER_IPP_TAKER_H_
#define PROGRAMS_PRINTER_IPP_TAKER_H_

#include <memory>
#include <string>

#include "host/server/exchange.h"
#include "programs/printer/ipp_message.h"
#include "programs/printer/operations.h"

namespace driver_feature::printer {

class IppTaker final : public host::BodyTaker {
 public:
  // The service must outlive this object.
  IppTaker(Service& service, const host::Request& request);

  std::optional<host::Response> take(std::string_view bytes) override;
  std::optional<host::Response> finish(host::RequestNumber request) override;

 private:
  std::optional<host::Response> takeAttributes(std::string_view bytes);
  void begin();
  void takeDocument(std::string_view bytes);
  bool store(std::string_view bytes);

  Service& service_;
  std::shared_ptr<IppExchange> exchange_;
  AttributeEnd end_;
  std::string head_;
  bool hasBegun_ = false;
  bool isReady_ = false;  // The response is; what still arrives is dropped.
  std::uint64_t dropped_ = 0;
  const Operation* operation_ = nullptr;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_IPP_TAKER_H_
