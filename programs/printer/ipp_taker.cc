#include "programs/printer/ipp_taker.h"

#include <utility>

#include "programs/common/console.h"

namespace driver_feature::printer {

namespace {

// A refused document is read up to this, because many clients read the response
// only when they have sent all.
constexpr std::uint64_t kMostDropped = 4 << 20;

host::Response responseOf(const IppExchange& exchange) {
  return {HTTP_STATUS_OK, "application/ipp", ippBytes(exchange.response.get())};
}

}  // namespace

IppTaker::IppTaker(Service& service, const host::Request& request)
    : service_(service), exchange_(std::make_shared<IppExchange>()) {
  exchange_->host = request.host;
  exchange_->isEncrypted = request.isEncrypted;
}

std::optional<host::Response> IppTaker::take(std::string_view bytes) {
  if (!hasBegun_) return takeAttributes(bytes);
  takeDocument(bytes);
  if (dropped_ > kMostDropped) return responseOf(*exchange_);
  return std::nullopt;
}

std::optional<host::Response> IppTaker::takeAttributes(std::string_view bytes) {
  head_ += bytes;
  const std::size_t size = end_.find(head_);
  if (end_.isTooMuch()) return host::plainResponse(HTTP_STATUS_REQUEST_TOO_LARGE);
  if (size == 0) return std::nullopt;
  const std::string rest = head_.substr(size);
  head_.resize(size);
  exchange_->request = readIpp(head_);
  head_ = {};
  if (!exchange_->request) return host::plainResponse(HTTP_STATUS_BAD_REQUEST);
  hasBegun_ = true;
  begin();
  if (!rest.empty()) takeDocument(rest);
  return std::nullopt;
}

void IppTaker::begin() {
  isReady_ = !checkRequest(service_, *exchange_);
  if (isReady_) return;
  operation_ = findOperation(static_cast<int>(::ippGetOperation(exchange_->request.get())));
  isReady_ = operation_->prepare != nullptr && !operation_->prepare(service_, *exchange_);
  if (isReady_ || !operation_->takesDocument) return;
  auto document = service_.jobs().spool().receive();
  if (!document) {
    cli::printProblem(document.error());
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_INTERNAL, "The document cannot be kept.");
    return;
  }
  exchange_->document = std::move(*document);
}

void IppTaker::takeDocument(std::string_view bytes) {
  if (isReady_ || !exchange_->document) {
    dropped_ += bytes.size();
    return;
  }
  if (!exchange_->inflation) {
    store(bytes);
  } else if (!exchange_->inflation->inflate(
                 bytes, [this](std::string_view piece) { return store(piece); })) {
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_COMPRESSION_ERROR,
                                  "The compressed document is damaged.");
  }
  if (isReady_) exchange_->document.reset();
}

// False when there is no room; the response is ready, then. What a compressed document
// becomes has the limits of any other.
bool IppTaker::store(std::string_view bytes) {
  const std::uint64_t size = exchange_->document->size() + bytes.size();
  if (size > service_.arguments().limits.bodyBytes) {
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_REQUEST_ENTITY, "The document is too large.");
  } else if (service_.jobs().isSpoolFull(size)) {
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_TEMPORARY, "There is no room for the document.");
  } else if (const auto written = exchange_->document->write(bytes); !written) {
    cli::printProblem(written.error());
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_TEMPORARY, "The document cannot be kept.");
  }
  return !isReady_;
}

std::optional<host::Response> IppTaker::finish(host::RequestNumber request) {
  if (!hasBegun_) return host::plainResponse(HTTP_STATUS_BAD_REQUEST);
  const Inflation* inflation = exchange_->inflation.get();
  if (!isReady_ && inflation != nullptr && exchange_->document && !inflation->isWhole() &&
      exchange_->document->size() > 0) {
    isReady_ = exchange_->respond(IPP_STATUS_ERROR_COMPRESSION_ERROR,
                                  "The compressed document is incomplete.");
  }
  if (isReady_) return responseOf(*exchange_);
  // The exchange is kept by whom it waits for.
  exchange_->done = [&service = service_, request,
                     exchange = std::weak_ptr<IppExchange>(exchange_)] {
    if (const auto kept = exchange.lock()) service.replyLater(request, responseOf(*kept));
  };
  if (operation_->run(service_, exchange_)) return responseOf(*exchange_);
  return std::nullopt;
}

}  // namespace driver_feature::printer
