// The text of an XML file as UTF-8, whatever its encoding.
#ifndef HOST_DESCRIPTION_TEXT_ENCODING_H_
#define HOST_DESCRIPTION_TEXT_ENCODING_H_

#include <string>

namespace driver_feature::host {

// `bytes` as UTF-8 without a byte order mark. `encoding` is the name that the
// document's declaration gives, or empty. A text that does not convert comes
// back as it is.
std::string decodeText(const std::string& bytes, const std::string& encoding);

// The encoding that an XML declaration at the start of `bytes` names; empty
// without one.
std::string declaredEncoding(const std::string& bytes);

}  // namespace driver_feature::host

#endif  // HOST_DESCRIPTION_TEXT_ENCODING_H_
