// What a printer that speaks PJL says of its state.
#ifndef PROGRAMS_PRINTER_PJL_STATUS_H_
#define PROGRAMS_PRINTER_PJL_STATUS_H_

#include <string>
#include <string_view>

namespace driver_feature::printer {

// Whether a job is for a printer that speaks PJL. Others would print what they are
// asked.
bool beginsWithPjl(std::string_view job);

// Before a job: asks for the state, now and after each change. After it: no more.
inline constexpr std::string_view kAskForStatus =
    "\033%-12345X@PJL\r\n@PJL INFO STATUS\r\n@PJL USTATUS DEVICE=ON\r\n";
inline constexpr std::string_view kAskNoMore =
    "\033%-12345X@PJL\r\n@PJL USTATUSOFF\r\n\033%-12345X";

// The keyword of printer-state-reasons for a code of PJL; empty for codes that say that
// all is well, or nothing that IPP has a word for.
std::string_view reasonOfCode(int code);

class PjlStatus final {
 public:
  // Takes what the printer has sent. Returns lines for the server: "STATE: +REASON",
  // "STATE: -REASON" and "INFO: TEXT" with what the printer shows on its panel.
  std::string take(std::string_view bytes);

 private:
  std::string takeLine(std::string_view line);

  std::string rest_;
  std::string reason_;
  std::string display_;
};

}  // namespace driver_feature::printer

#endif  // PROGRAMS_PRINTER_PJL_STATUS_H_
