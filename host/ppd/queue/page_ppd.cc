#include "host/ppd/queue/page_ppd.h"

#include <cstdlib>

#include "host/description/description_index.h"
#include "host/ppd/plain/sheetless_page_ppd.h"
#include "host/ppd/ppd_file.h"

namespace driver_feature::ppd {

namespace {

// The value of an attribute; empty without one.
const char* value(ppd_file_t& ppd, const char* name) {
  const ppd_attr_t* attribute = ppdFindAttr(&ppd, name, nullptr);
  return attribute != nullptr && attribute->value != nullptr ? attribute->value : "";
}

std::string option(const std::string& keyword, const std::string& choice) {
  // Text of this section is written for "emit-jcl" only.
  return "*OpenUI *" + keyword + ": PickOne\n*OrderDependency: 10 JCLSetup *" + keyword +
         "\n*Default" + keyword + ": " + choice + "\n*" + keyword + " " + choice +
         ": \"\"\n*CloseUI: *" + keyword + "\n";
}

std::string sheet(const ppd_size_t& size) {
  const bool hasArea = size.right > size.left && size.top > size.bottom;
  const std::string width = host::numberText(size.width);
  const std::string length = host::numberText(size.length);
  const std::string area =
      hasArea ? host::numberText(size.left) + " " + host::numberText(size.bottom) + " " +
                    host::numberText(size.right) + " " + host::numberText(size.top)
              : "0 0 " + width + " " + length;
  return option("PageSize", "Sheet") + "*ImageableArea Sheet: \"" + area +
         "\"\n*PaperDimension Sheet: \"" + width + " " + length + "\"\n";
}

}  // namespace

bool printsBothSides(ppd_file_t& ppd) {
  for (const char* keyword : {"Duplex", "JCLDuplex", "EFDuplex", "KD03Duplex"}) {
    for (const char* choice : {"DuplexNoTumble", "DuplexTumble"}) {
      if (ppdIsMarked(&ppd, keyword, choice) != 0) return true;
    }
  }
  return false;
}

bool fillsLastSheet(ppd_file_t& ppd) {
  return equalKeywords(value(ppd, "cupsEvenDuplex"), "true") && printsBothSides(ppd);
}

bool stacksReversed(ppd_file_t& ppd) {
  if (ppdFindOption(&ppd, "OutputOrder") != nullptr) return false;
  const ppd_choice_t* tray = ppdFindMarkedChoice(&ppd, "OutputBin");
  const ppd_attr_t* order =
      tray != nullptr ? ppdFindAttr(&ppd, "PageStackOrder", tray->choice) : nullptr;
  const bool isTrays = order != nullptr && order->value != nullptr;
  return equalKeywords(isTrays ? order->value : value(ppd, "DefaultOutputOrder"), "Reverse");
}

int mostCopies(ppd_file_t& ppd) {
  constexpr int kMany = 9999;
  const char* most = value(ppd, "cupsMaxCopies");
  if (*most != '\0') return std::atoi(most);
  return ppd.manual_copies != 0 ? 1 : kMany;
}

std::string pagePpd(ppd_file_t* ppd) {
  std::string text(kSheetlessPagePpd);
  if (ppd == nullptr) return text;
  if (ppd->landscape > 0) text += "*LandscapeOrientation: Plus90\n";
  if (ppd->landscape < 0) text += "*LandscapeOrientation: Minus90\n";
  const ppd_size_t* size = ppdPageSize(ppd, nullptr);
  if (size != nullptr && size->width > 0 && size->length > 0) text += sheet(*size);
  if (printsBothSides(*ppd)) text += option("Duplex", "DuplexNoTumble");
  if (fillsLastSheet(*ppd)) text += "*cupsEvenDuplex: True\n";
  return text;
}

}  // namespace driver_feature::ppd
