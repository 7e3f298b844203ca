// The operations of IPP that clients can ask for.
#ifndef PROGRAMS_PRINTER_OPERATIONS_H_
#define PROGRAMS_PRINTER_OPERATIONS_H_

#include <functional>
#include <memory>
#include <span>
#include <string>

#include "programs/printer/inflation.h"
#include "programs/printer/printer.h"
#include "programs/printer/service.h"

namespace driver_feature::printer {

// One request and its response.
struct IppExchange {
  IppPointer request = noIpp();
  IppPointer response = noIpp();
  std::string host;            // As the client calls the server, with the port.
  bool isEncrypted = false;    // The connection of the client.
  Printer* printer = nullptr;  // Never null once the request has been checked.
  std::string preset;          // Of the printer's URI; may be empty.
  Job* job = nullptr;          // Of operations on one job.
  std::string user;
  std::unique_ptr<IncomingDocument> document;
  std::unique_ptr<Inflation> inflation;  // Of a document that is compressed.
  std::function<void()> done;            // Sends a response that comes later.

  // Sets the status and a message for people. Returns true: the response is ready.
  bool respond(ipp_status_t status, const std::string& message = "");

  // "ipp://HOST:PORT/ipp/", or ipps where the connection is encrypted.
  std::string addressHere() const { return (isEncrypted ? "ipps://" : "ipp://") + host + "/ipp/"; }

  bool hasFailed() const {
    return ::ippGetStatusCode(response.get()) >= IPP_STATUS_ERROR_BAD_REQUEST;
  }
};

struct Operation {
  ipp_op_t code;
  bool isOfJob;        // The request names a job.
  bool takesDocument;  // A document may follow the attributes.
  // What can be checked before the document arrives. False when the response is
  // ready: the request is refused. May be null.
  bool (*prepare)(Service& service, IppExchange& exchange);
  // True when the response is ready; else exchange->done() is called later.
  bool (*run)(Service& service, const std::shared_ptr<IppExchange>& exchange);
};

std::span<const Operation> operations();

const Operation* findOperation(int code);

// Checks what every request must have, makes the response and finds the printer
// and the job. False when the response is ready: the request is refused.
bool checkRequest(Service& service, IppExchange& exchange);

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_OPERATIONS_H_
