#include "programs/printer/operations.h"

#include <algorithm>
#include <array>

#include "programs/printer/job_operations.h"
#include "programs/printer/printer_attributes.h"
#include "programs/printer/printing_operations.h"

namespace driver_feature::printer {

namespace {

bool getPrinterAttributes(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  addPrinterAttributes(service, *exchange);
  return true;
}

bool identifyPrinter(Service& service, const std::shared_ptr<IppExchange>& exchange) {
  reportIdentification(service, *exchange);
  return true;
}

constexpr std::array kOperations = {
    Operation{IPP_OP_PRINT_JOB, false, true, &preparePrinting, &printJob},
    Operation{IPP_OP_VALIDATE_JOB, false, false, &preparePrinting, &validateJob},
    Operation{IPP_OP_CREATE_JOB, false, false, &preparePrinting, &createJob},
    Operation{IPP_OP_SEND_DOCUMENT, true, true, &prepareDocument, &sendDocument},
    Operation{IPP_OP_CANCEL_JOB, true, false, nullptr, &cancelJob},
    Operation{IPP_OP_GET_JOB_ATTRIBUTES, true, false, nullptr, &getJobAttributes},
    Operation{IPP_OP_GET_JOBS, false, false, nullptr, &getJobs},
    Operation{IPP_OP_GET_PRINTER_ATTRIBUTES, false, false, nullptr, &getPrinterAttributes},
    Operation{IPP_OP_HOLD_JOB, true, false, nullptr, &holdJob},
    Operation{IPP_OP_RELEASE_JOB, true, false, nullptr, &releaseJob},
    Operation{IPP_OP_GET_PRINTER_SUPPORTED_VALUES, false, false, nullptr, &getPrinterAttributes},
    Operation{IPP_OP_CANCEL_MY_JOBS, false, false, nullptr, &cancelMyJobs},
    Operation{IPP_OP_CLOSE_JOB, true, false, nullptr, &closeJob},
    Operation{IPP_OP_IDENTIFY_PRINTER, false, false, nullptr, &identifyPrinter},
};

// Of a text that IPP allows 255 bytes for, so many that no character is cut.
std::string shortened(const std::string& text) {
  constexpr std::size_t kLongest = 255;
  if (text.size() <= kLongest) return text;
  std::size_t size = kLongest;
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xc0U) == 0x80U) --size;
  return text.substr(0, size);
}

}  // namespace

bool IppExchange::respond(ipp_status_t status, const std::string& message) {
  ::ippSetStatusCode(response.get(), status);
  if (message.empty()) return true;
  // Behind the two attributes that every response begins with.
  ::ippAddString(response.get(), IPP_TAG_OPERATION, IPP_TAG_TEXT, "status-message", nullptr,
                 shortened(message).c_str());
  return true;
}

std::span<const Operation> operations() {
  return kOperations;
}

const Operation* findOperation(int code) {
  const auto found = std::find_if(kOperations.begin(), kOperations.end(),
                                  [code](const Operation& one) { return one.code == code; });
  return found == kOperations.end() ? nullptr : &*found;
}

}  // namespace driver_feature::printer
