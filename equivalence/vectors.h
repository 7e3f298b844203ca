// Random choices for a PPD.
#ifndef EQUIVALENCE_VECTORS_H_
#define EQUIVALENCE_VECTORS_H_

#include <string>
#include <vector>

#include "equivalence/peer.h"
#include "equivalence/ppd_text.h"
#include "equivalence/random.h"

namespace driver_feature::equivalence {

// Choices that decide which options are marked at all: libcups' rules of page
// size, page region, input slot and manual feed, and each custom choice.
std::vector<Marks> mediaMarks(const Peer& peer, Random& random);

// A choice for most of the options, each of its choices as likely as the
// others, custom values included; any number of choices where an option takes
// several. About one option in eight keeps its default. Constraints are
// ignored: they forbid combinations to users, but do not change the output.
Marks randomMarks(const Peer& peer, Random& random);

// "Option=Choice", with "{Parameter=Value ...}" after a custom choice.
std::string describe(const Marks& marks);

}  // namespace driver_feature::equivalence

#endif  // EQUIVALENCE_VECTORS_H_
