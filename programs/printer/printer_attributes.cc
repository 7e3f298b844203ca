#include "programs/printer/printer_attributes.h"

#include <algorithm>
#include <set>

#include "host/base/text.h"
#include "programs/common/console.h"
#include "programs/printer/attribute_list.h"
#include "programs/printer/conversion.h"
#include "programs/printer/ipp_message.h"
#include "programs/printer/preset_attributes.h"
#include "programs/printer/requested.h"

namespace driver_feature::printer {

namespace {

constexpr int kMostKilobytes = 4 << 20;  // Of a document.

void addProtocol(AttributeList& list) {
  list.strings(IPP_TAG_CHARSET, "charset-supported", {"us-ascii", "utf-8"});
  list.strings(IPP_TAG_CHARSET, "charset-configured", {"utf-8"});
  list.strings(IPP_TAG_LANGUAGE, "natural-language-configured", {"en"});
  list.keywords("ipp-versions-supported", {"1.0", "1.1", "2.0"});
  list.keywords("ipp-features-supported", {"ipp-everywhere"});
  std::vector<int> codes;
  for (const Operation& operation : operations()) codes.push_back(operation.code);
  list.enumerations("operations-supported", codes);
  list.keywords("which-jobs-supported", {"completed", "not-completed", "all"});
  list.boolean("job-ids-supported", true);
  list.boolean("multiple-document-jobs-supported", false);
  list.integer("multiple-operation-time-out", 300);
  list.keyword("multiple-operation-time-out-action", "abort-job");
  list.keywords("printer-get-attributes-supported", {"document-format"});
  list.keywords("identify-actions-supported", {"display"});
  list.keyword("identify-actions-default", "display");
}

void addDocuments(AttributeList& list) {
  const auto formats = documentFormats();
  list.strings(IPP_TAG_MIMETYPE, "document-format-supported", {formats.begin(), formats.end()});
  list.strings(IPP_TAG_MIMETYPE, "document-format-default", {formats.front()});
  list.strings(IPP_TAG_MIMETYPE, "document-format-preferred", {"application/pdf"});
  list.keywords("compression-supported", {"none", "gzip", "deflate"});
  // PDF files with passwords are not taken.
  list.integer("document-password-supported", 0);
  list.keyword("pdl-override-supported", "attempted");
  list.range("job-k-octets-supported", 0, kMostKilobytes);
  list.range("pdf-k-octets-supported", 0, kMostKilobytes);
  list.keywords("pdf-versions-supported",
                {"adobe-1.3", "adobe-1.4", "adobe-1.5", "adobe-1.6", "iso-32000-1_2008"});
  list.range("jpeg-k-octets-supported", 0, 512 << 10);
  list.range("jpeg-x-dimension-supported", 1, 65535);
  list.range("jpeg-y-dimension-supported", 1, 65535);
  list.keywords("pwg-raster-document-type-supported", {"black_1", "sgray_8", "srgb_8"});
  list.keyword("pwg-raster-document-sheet-back", "normal");
  list.keywords("urf-supported", {"V1.4", "W8", "SRGB24", "CP255", "RS300-600", "DM1"});
}

void addRasterResolutions(ipp_t* message) {
  ipp_attribute_t* own =
      ::ippFindAttribute(message, "printer-resolution-supported", IPP_TAG_RESOLUTION);
  if (own != nullptr) {
    ipp_attribute_t* copy = ::ippCopyAttribute(message, own, 0);
    ::ippSetName(message, &copy, "pwg-raster-document-resolution-supported");
    return;
  }
  ::ippAddResolution(message, IPP_TAG_PRINTER, "pwg-raster-document-resolution-supported",
                     IPP_RES_PER_INCH, 300, 300);
}

bool hasColour(ipp_t* message) {
  ipp_attribute_t* modes =
      ::ippFindAttribute(message, "print-color-mode-supported", IPP_TAG_KEYWORD);
  return modes != nullptr && ::ippContainsString(modes, "color") != 0;
}

void addIdentity(AttributeList& list, const Service& service, const Printer& printer) {
  list.name("printer-name", printer.name);
  list.text("printer-info", printer.name);
  list.text("printer-location", "");
  list.text("printer-make-and-model", "libDriverFeature " + printer.name);
  list.text("printer-device-id", "MFG:libDriverFeature;MDL:" + printer.name +
                                     ";CMD:PDF,PS,JPEG,PWGRaster,URF;CLS:PRINTER;");
  list.uri("printer-uuid", service.uuidOf(printer.name));
  list.unknown("printer-geo-location");
  list.text("printer-organization", "");
  list.text("printer-organizational-unit", "");
  list.keywords("printer-kind", {"document"});
  // Required, and not said by descriptions: the least that a printer does.
  list.integer("pages-per-minute", 1);
}

void addSupplies(ipp_t* message, AttributeList& list, const Printer& printer) {
  std::vector<Supply> supplies = printer.supplies;
  if (supplies.empty()) supplies.emplace_back();
  std::vector<const char*> names;
  ipp_attribute_t* attribute = nullptr;
  for (std::size_t i = 0; i < supplies.size(); ++i) {
    names.push_back(supplies[i].name.c_str());
    const std::string text = supplyText(supplies[i], static_cast<int>(i) + 1);
    const int size = static_cast<int>(text.size());
    if (attribute == nullptr) {
      attribute =
          ::ippAddOctetString(message, IPP_TAG_PRINTER, "printer-supply", text.data(), size);
    } else {
      ::ippSetOctetString(message, &attribute, static_cast<int>(i), text.data(), size);
    }
  }
  list.strings(IPP_TAG_TEXT, "printer-supply-description", names);
}

std::vector<std::string> languagesOf(const Printer& printer) {
  std::vector<std::string> languages = printer.translation->languages();
  for (std::string& language : languages) {
    if (language.empty()) language = "en";
  }
  if (languages.empty()) languages = {"en"};
  return languages;
}

void addState(ipp_t* message, Service& service, const IppExchange& exchange) {
  AttributeList list(message);
  const Printer& printer = *exchange.printer;
  list.name("printer-dns-sd-name", printer.networkName);
  addSupplies(message, list, printer);
  const bool isPrinting = printer.current != 0;
  list.enumeration("printer-state", printer.isStopped() ? IPP_PSTATE_STOPPED
                                    : isPrinting        ? IPP_PSTATE_PROCESSING
                                                        : IPP_PSTATE_IDLE);
  std::vector<const char*> reasons;
  for (const std::string& reason : printer.reasons) reasons.push_back(reason.c_str());
  if (reasons.empty()) reasons.push_back("none");
  list.keywords("printer-state-reasons", reasons);
  const std::string usual = isPrinting ? "Printing." : "Ready.";
  list.text("printer-state-message", printer.message.empty() ? usual : printer.message);
  list.boolean("printer-is-accepting-jobs", true);
  list.integer("queued-job-count", static_cast<int>(service.jobs().waiting(printer.name)));
  const int upTime = static_cast<int>(service.upTime()) + 1;
  list.integer("printer-up-time", upTime);
  const std::int64_t started = Service::now() - service.upTime();
  const auto since = [&](std::int64_t time) {
    return static_cast<int>(std::max<std::int64_t>(time - started + 1, 1));
  };
  list.integer("printer-state-change-time", since(printer.stateChanged));
  list.integer("printer-config-change-time", since(printer.configured));
  ::ippAddDate(message, IPP_TAG_PRINTER, "printer-current-time", dateOf(Service::now()));
  ::ippAddDate(message, IPP_TAG_PRINTER, "printer-state-change-date-time",
               dateOf(printer.stateChanged));
  ::ippAddDate(message, IPP_TAG_PRINTER, "printer-config-change-date-time",
               dateOf(printer.configured));
}

// The language for a client: its own where there are texts in it, such as "de" for
// "de-ch".
std::string languageFor(const IppExchange& exchange) {
  const std::string wanted = host::toLower(
      textOf(exchange.request.get(), "attributes-natural-language", IPP_TAG_LANGUAGE));
  const std::vector<std::string> languages = languagesOf(*exchange.printer);
  for (const std::string& language : languages) {
    const std::string known = host::toLower(language);
    if (wanted == known || wanted.starts_with(known + "-")) return language;
  }
  return languages.front();
}

// What depends on the name by which the client calls the server.
void addAddresses(ipp_t* message, const Service& service, const IppExchange& exchange) {
  AttributeList list(message);
  const Printer& printer = *exchange.printer;
  std::string path = exchange.host + "/ipp/print/" + printer.name;
  if (!exchange.preset.empty()) path += "/" + exchange.preset;
  const std::string clear = "ipp://" + path;
  const std::string encrypted = "ipps://" + path;
  std::vector<const char*> uris;
  std::vector<const char*> securities;
  if (!service.isTlsRequired()) {
    uris.push_back(clear.c_str());
    securities.push_back("none");
  }
  if (service.isTlsOffered()) {
    uris.push_back(encrypted.c_str());
    securities.push_back("tls");
  }
  list.strings(IPP_TAG_URI, "printer-uri-supported", uris);
  list.keywords("uri-security-supported", securities);
  list.keywords("uri-authentication-supported",
                std::vector<const char*>(uris.size(), "requesting-user-name"));
  const std::string page = (exchange.isEncrypted ? "https://" : "http://") + exchange.host + "/";
  list.uri("printer-more-info", page + printer.name);
  list.uri("printer-supply-info-uri", page + printer.name);
  list.strings(IPP_TAG_URI, "printer-icons", {(page + "icon.png").c_str()});
  list.uri("printer-strings-uri", page + "strings/" + printer.name + "/" + languageFor(exchange));
}

}  // namespace

IppPointer fixedAttributes(const Service& service, const Printer& printer) {
  IppPointer message(::ippNew(), &::ippDelete);
  AttributeList list(message.get());
  addProtocol(list);
  addIdentity(list, service, printer);
  addDocuments(list);
  const std::size_t leftOut = printer.translation->addPrinterAttributes(message.get());
  if (leftOut > 0) {
    const std::size_t rules = printer.translation->capabilities().rules.size();
    cli::printError(printer.name + ": too many rules: clients are not told the last " +
                    std::to_string(leftOut) + " of " + std::to_string(rules) +
                    "; jobs are checked against all");
  }
  addRasterResolutions(message.get());
  list.boolean("color-supported", hasColour(message.get()));
  if (hasColour(message.get())) list.integer("pages-per-minute-color", 1);
  const std::vector<std::string> languages = languagesOf(printer);
  std::vector<const char*> words;
  words.reserve(languages.size());
  for (const std::string& language : languages) words.push_back(language.c_str());
  list.strings(IPP_TAG_LANGUAGE, "generated-natural-language-supported", words);
  list.strings(IPP_TAG_LANGUAGE, "printer-strings-languages-supported", words);
  return message;
}

void addPrinterAttributes(Service& service, IppExchange& exchange) {
  ipp_t* request = exchange.request.get();
  const std::string format = textOf(request, "document-format", IPP_TAG_MIMETYPE);
  if (!format.empty() && !isDocumentFormat(format)) {
    exchange.respond(IPP_STATUS_ERROR_DOCUMENT_FORMAT_NOT_SUPPORTED,
                     "Documents of the type " + format + " are not supported.");
    return;
  }
  const Requested requested(request, {"all"});
  const std::set<std::string>& templates = exchange.printer->jobAttributes;
  const IppPointer own = presetAttributes(service, *exchange.printer, exchange.preset);
  requested.copyPrinter(exchange.response.get(), exchange.printer->attributes.get(), templates,
                        own.get(), true);
  requested.copyPrinter(exchange.response.get(), own.get(), templates, nullptr, false);
  const IppPointer state(::ippNew(), &::ippDelete);
  addAddresses(state.get(), service, exchange);
  addState(state.get(), service, exchange);
  // These do not live as long as the response.
  requested.copyPrinter(exchange.response.get(), state.get(), templates, own.get(), false);
}

void reportIdentification(Service& /*service*/, IppExchange& exchange) {
  const std::string text = textOf(exchange.request.get(), "message", IPP_TAG_TEXT);
  cli::printError(exchange.printer->name + ": " + exchange.user + " asks which printer it is" +
                  (text.empty() ? "" : ": " + text));
}

}  // namespace driver_feature::printer
