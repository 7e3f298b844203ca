// Which feature or group has written which part of a PostScript or PJL output.
//
// The output is written again here, as the library does it, from the commands and
// values that the features have now and from what routines have written. Where the
// result is the output, byte for byte, the parts are certain; otherwise there are
// none.
#ifndef HOST_PAGE_OUTPUT_OWNERS_H_
#define HOST_PAGE_OUTPUT_OWNERS_H_

#include <string>
#include <string_view>
#include <vector>

#include "host/page/catalog.h"
#include "host/page/shown_text.h"
#include "host/session/output_form.h"
#include "host/session/routine_texts.h"
#include "host/session/session.h"

namespace driver_feature::page {

// The parts of `output` in their order; none for an output that is not understood.
// The names belong to the session.
std::vector<OwnedPart> textOwners(const host::Session& session, const Catalog& catalog,
                                  host::OutputForm form,
                                  const std::vector<host::RoutineText>& calls,
                                  std::string_view output);

}  // namespace driver_feature::page

#endif  // HOST_PAGE_OUTPUT_OWNERS_H_
