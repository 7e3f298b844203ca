// The PPD with which the print scheduler's own filter works on the pages of a
// job without a PPD. Those of other jobs begin with it.
#ifndef HOST_PPD_PLAIN_SHEETLESS_PAGE_PPD_H_
#define HOST_PPD_PLAIN_SHEETLESS_PAGE_PPD_H_

namespace driver_feature::ppd {

inline constexpr const char* kSheetlessPagePpd =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"PAGES.PPD\"\n"
    "*Manufacturer: \"None\"\n*ModelName: \"Pages\"\n*ShortNickName: \"Pages\"\n"
    "*NickName: \"Pages\"\n*Product: \"(Pages)\"\n*PSVersion: \"(3010.000) 0\"\n"
    "*LanguageLevel: \"3\"\n*ColorDevice: True\n"
    "*cupsFilter: \"application/postscript 0 driver-feature-filter\"\n";

}  // namespace driver_feature::ppd

#endif  // HOST_PPD_PLAIN_SHEETLESS_PAGE_PPD_H_
