#ifndef HOST_BASE_LANGUAGE_H_
#define HOST_BASE_LANGUAGE_H_

namespace driver_feature::host {

// Libraries give their words in English from now on: libcups takes the language of the
// environment for its messages, for the words of an HTTP status, and for which
// translations of a PPD it reads. Our programs write English, and what is said of a file
// must not depend on who runs them. To be called before libcups is asked for anything.
void useEnglish();

}  // namespace driver_feature::host

#endif  // HOST_BASE_LANGUAGE_H_
