#include "programs/printer/announcement.h"

#include <gtest/gtest.h>

#include "programs/printer/attribute_list.h"

namespace driver_feature::printer {
namespace {

Printer colourPrinter() {
  Printer printer;
  printer.name = "office";
  printer.attributes = IppPointer(::ippNew(), &::ippDelete);
  AttributeList list(printer.attributes.get());
  list.text("printer-make-and-model", "Maker Model");
  list.strings(IPP_TAG_MIMETYPE, "document-format-supported",
               {"application/octet-stream", "application/pdf", "image/urf"});
  list.keywords("urf-supported", {"V1.4", "W8"});
  list.keywords("sides-supported", {"one-sided", "two-sided-long-edge"});
  list.boolean("color-supported", true);
  return printer;
}

TEST(Announcement, Texts_SayWhatThePrinterCan) {
  const AnnouncedPrinter announced =
      announcedPrinter(colourPrinter(), "urn:uuid:01234567-89ab", /*isTlsOffered=*/true);
  EXPECT_EQ(announced.name, "office");
  EXPECT_EQ(announced.texts, (std::vector<std::string>{
                                 "txtvers=1", "qtotal=1", "rp=ipp/print/office", "ty=Maker Model",
                                 "product=(Maker Model)", "note=", "priority=50", "kind=document",
                                 "pdl=application/pdf,image/urf", "URF=V1.4,W8",
                                 "UUID=01234567-89ab", "Color=T", "Duplex=T", "TLS=1.3"}));
}

TEST(Announcement, LongText_IsCut) {
  Printer printer = colourPrinter();
  AttributeList list(printer.attributes.get());
  ::ippDeleteAttribute(
      printer.attributes.get(),
      ::ippFindAttribute(printer.attributes.get(), "printer-make-and-model", IPP_TAG_TEXT));
  list.text("printer-make-and-model", std::string(300, 'm'));
  const AnnouncedPrinter announced = announcedPrinter(printer, "urn:uuid:1", false);
  EXPECT_EQ(announced.texts[3], "ty=" + std::string(252, 'm'));
  EXPECT_EQ(announced.texts.back(), "Duplex=T");
}

}  // namespace
}  // namespace driver_feature::printer
