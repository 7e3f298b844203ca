#include "host/check/allowances.h"

#include <algorithm>
#include <optional>

#include "host/base/text.h"
#include "host/description/start_tags.h"

namespace driver_feature::check {

namespace {

constexpr std::string_view kStart = "driver-feature:";
constexpr std::string_view kVerb = "allow";
constexpr std::string_view kXmlBlanks = " \t\r\n";
constexpr const char* kForm = "write <!-- driver-feature: allow DF303: REASON -->";

// One code that a comment allows.
struct Allowance {
  host::XmlComment place;
  Code code = Code::kUnreadable;
  std::string reason;
  bool used = false;
};

std::string_view trimmed(std::string_view text) {
  return host::trimmed(text, kXmlBlanks);
}

// Reads what follows "driver-feature:" and adds its codes, or says what is wrong.
std::optional<std::string> readCodes(const host::XmlComment& comment, std::string_view text,
                                     std::vector<Allowance>& allowances) {
  const bool allows =
      text.starts_with(kVerb) && (text.size() == kVerb.size() ||
                                  kXmlBlanks.find(text[kVerb.size()]) != std::string_view::npos);
  if (!allows) return "this comment does not say \"allow\"";
  text.remove_prefix(kVerb.size());
  const std::size_t colon = text.find(':');
  const std::string_view reason =
      colon == std::string_view::npos ? "" : trimmed(text.substr(colon + 1));
  std::string_view codes = text.substr(0, colon);
  std::vector<Allowance> read;
  for (bool more = true; more;) {
    const std::size_t comma = codes.find(',');
    more = comma != std::string_view::npos;
    const std::string name(trimmed(codes.substr(0, comma)));
    const CodeRow* row = findCode(name);
    if (row == nullptr) return "there is no code \"" + name + "\" to allow";
    read.push_back({comment, row->code, std::string(reason)});
    if (more) codes.remove_prefix(comma + 1);
  }
  allowances.insert(allowances.end(), read.begin(), read.end());
  return std::nullopt;
}

std::vector<Allowance> readAll(std::string_view utf8, Findings& findings) {
  std::vector<Allowance> allowances;
  for (const host::XmlComment& comment : host::findComments(utf8)) {
    const std::string_view text = trimmed(comment.text);
    if (!text.starts_with(kStart)) continue;
    if (const auto fault = readCodes(comment, trimmed(text.substr(kStart.size())), allowances)) {
      findings.push_back({Code::kUnreadAllowance, comment.position, *fault, kForm, {}});
    }
  }
  return allowances;
}

bool covers(const Allowance& allowance, const Finding& finding) {
  return allowance.code == finding.code && allowance.place.element.line > 0 &&
         allowance.place.element <= finding.position &&
         finding.position < allowance.place.elementEnd;
}

void reportAllowances(const std::vector<Allowance>& allowances, Findings& findings) {
  for (const Allowance& allowance : allowances) {
    const std::string name = rowOf(allowance.code).name;
    if (!allowance.used) {
      findings.push_back(
          {Code::kUselessAllowance,
           allowance.place.position,
           "this comment allows " + name + ", which is not reported for the next element",
           "remove " + name + " from it",
           {}});
    } else if (allowance.reason.empty()) {
      findings.push_back({Code::kAllowanceWithoutReason,
                          allowance.place.position,
                          "this comment allows " + name + " without a reason",
                          "give it after a colon: allow " + name + ": REASON",
                          {}});
    }
  }
}

}  // namespace

std::vector<AllowedFinding> takeAllowed(std::string_view utf8, Findings& findings,
                                        const std::string& file) {
  Findings about;
  std::vector<Allowance> allowances = readAll(utf8, about);
  std::vector<AllowedFinding> allowed;
  Findings left;
  for (Finding& finding : findings) {
    Allowance* by = nullptr;
    for (Allowance& allowance : allowances) {
      if (finding.file != file || !covers(allowance, finding)) continue;
      allowance.used = true;
      by = &allowance;
    }
    if (by != nullptr) {
      allowed.push_back({std::move(finding), by->reason});
    } else {
      left.push_back(std::move(finding));
    }
  }
  findings = std::move(left);
  reportAllowances(allowances, about);
  for (Finding& finding : about) {
    finding.file = file;
    findings.push_back(std::move(finding));
  }
  return allowed;
}

}  // namespace driver_feature::check
