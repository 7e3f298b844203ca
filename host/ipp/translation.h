// A description as IPP clients see it: its features as attributes of a printer,
// and the attributes of their jobs as settings of the features.
//
//   Translation office(*capabilitiesFromJson(text));
//   office.addPrinterAttributes(response);
//   JobSettings job = office.settingsOf(request);
//
// Every visible feature that jobs can set is an attribute: of a registered name
// where IPP has one ("sides", "media"), else of its own ("x-toner-save-mode").
#ifndef HOST_IPP_TRANSLATION_H_
#define HOST_IPP_TRANSLATION_H_

#include <cups/ipp.h>

#include <memory>
#include <string>
#include <vector>

#include "host/ipp/capabilities.h"
#include "host/ipp/job_settings.h"

namespace driver_feature::ipp {

struct AttributeTable;

class Translation {
 public:
  explicit Translation(Capabilities capabilities);
  ~Translation();
  Translation(Translation&& other) noexcept;
  Translation& operator=(Translation&& other) noexcept;
  Translation(const Translation&) = delete;
  Translation& operator=(const Translation&) = delete;

  const Capabilities& capabilities() const;

  // Adds to the printer group: XXX-supported, XXX-default and XXX-ready of all
  // attributes of a job that this class reads, job-creation-attributes-supported
  // with their names, the presets, and the rules as constraints. Not: what is about
  // the printer as a device, its formats and its jobs. Returns how many rules, the
  // last ones, are not among the constraints because there are too many.
  std::size_t addPrinterAttributes(ipp_t* response) const;

  // The names in job-creation-attributes-supported.
  std::vector<std::string> jobAttributeNames() const;

  // Reads the operation and job groups of a request that creates or validates a
  // job. A preset's settings come first; its name may be empty or unknown, which
  // means none.
  JobSettings settingsOf(ipp_t* request, const std::string& preset = "") const;

  // The same settings as attributes, such as "preferred-attributes" of a validated
  // job. What is not an attribute is left out.
  void addSettings(ipp_t* response, ipp_tag_t group,
                   const std::vector<host::Setting>& settings) const;

  // The media-name of the size that the settings choose; empty for none.
  std::string mediaOf(const std::vector<host::Setting>& settings) const;

  // Makes changes to settings that were read, and to what follows from them.
  void change(JobSettings& job, const std::vector<host::Setting>& changes) const;

  // The attributes that carry a feature; empty when none does.
  std::vector<std::string> attributesOf(const std::string& feature) const;

  // The languages that have texts, the first one being the description's own.
  std::vector<std::string> languages() const;

  // The file for printer-strings-uri: texts of attributes and of their values.
  std::string strings(const std::string& language) const;

 private:
  std::unique_ptr<const Capabilities> capabilities_;
  std::unique_ptr<const AttributeTable> table_;
};

}  // namespace driver_feature::ipp

#endif  // HOST_IPP_TRANSLATION_H_
