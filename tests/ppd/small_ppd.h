// A PPD file for tests to which its contents do not matter.
#ifndef TESTS_PPD_SMALL_PPD_H_
#define TESTS_PPD_SMALL_PPD_H_

inline constexpr const char* kSmallPpd =
    "*PPD-Adobe: \"4.3\"\n"
    "*OpenUI *Duplex: PickOne\n"
    "*DefaultDuplex: Off\n"
    "*Duplex Off: \"/duplex false def\"\n"
    "*CloseUI: *Duplex\n";

#endif  // TESTS_PPD_SMALL_PPD_H_
