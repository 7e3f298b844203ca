// The texts of a description in a PPD that is made of it.
#ifndef HOST_PPD_QUEUE_MADE_TEXTS_H_
#define HOST_PPD_QUEUE_MADE_TEXTS_H_

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "host/description/texts.h"

namespace driver_feature::ppd {

class MadeTexts {
 public:
  // Languages that a PPD has no keywords for are added to the losses.
  MadeTexts(const std::vector<host::TextsOfLanguage>& texts, std::vector<std::string>& losses);

  // The text in the description's own language as it follows a name, "/Paper
  // tray"; empty without one. `place` is the keyword for translations, and what
  // follows it: "Translation InputSlot" or "InputSlot Tray1".
  std::string textFor(const std::string& place, const std::string& key);

  // The same of something that has a text of its own, which counts if the
  // description's own language has none. Of two that have one place, as an option
  // and its group may have, the translations of the first are used.
  std::string textFor(const std::string& place, const std::string& key,
                      const std::string& otherwise);

  // The statements that name the languages: to be called when all texts are there.
  std::string languageLines() const;

  // The statements with the translations.
  std::string translationLines() const;

 private:
  using ByKey = std::unordered_map<std::string, std::string>;
  struct Language {
    std::string tag;
    std::string locale;
    ByKey texts;
  };
  struct Place {
    std::string place;
    std::string key;
  };

  Language& languageNamed(const std::string& tag, const std::string& locale);
  bool isComplete(const Language& language) const;

  std::vector<Language> languages_;  // The description's own first.
  std::vector<Place> places_;
  std::unordered_set<std::string> knownPlaces_;
  bool isPlain_ = true;  // The texts in the description's own language are ASCII.
};

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_QUEUE_MADE_TEXTS_H_
