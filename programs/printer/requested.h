// Which attributes a client has asked for.
#ifndef PROGRAMS_PRINTER_REQUESTED_H_
#define PROGRAMS_PRINTER_REQUESTED_H_

#include <cups/ipp.h>

#include <set>
#include <string>

namespace driver_feature::printer {

class Requested final {
 public:
  // The request's "requested-attributes"; without it, `otherwise`.
  Requested(ipp_t* request, const std::set<std::string>& otherwise);

  // Whether an attribute of the group, such as "job-template", is asked for.
  bool has(const std::string& name, const std::string& group) const;

  // Copies the attributes that are asked for. Those whose names end as those of
  // job templates do (-default, -supported, -ready) belong to the group
  // "job-template" when `templates` has the part before, else to
  // "printer-description". The source must live as long as the response if
  // `isKept`. Attributes that are in `others`, which may be null, are left out.
  void copyPrinter(ipp_t* response, ipp_t* source, const std::set<std::string>& templates,
                   ipp_t* others, bool isKept) const;

 private:
  std::set<std::string> names_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_REQUESTED_H_
