#include "golden/pjl_checker.h"

#include <gtest/gtest.h>

namespace {

const std::string kBegin = "\x1B%-12345X@PJL JOB NAME = \"Name\"\r\n";
const std::string kEnd = "@PJL ENTER LANGUAGE = POSTSCRIPT\r\n";

TEST(PjlCheckerTest, FindPjlFault_GoodHeaders_ReturnsNothing) {
  EXPECT_EQ(findPjlFault(kBegin + kEnd), "");
  EXPECT_EQ(findPjlFault(kBegin +
                         "@PJL SET DUPLEX = ON\r\n@PJL SET TIMEOUT = 60\r\n"
                         "@PJL SET SHIFT = -1.5\r\n@PJL SET USERNAME = \"\"\r\n" +
                         kEnd),
            "");
}

TEST(PjlCheckerTest, FindPjlFault_BadHeaders_ReturnsTheFirstFault) {
  const struct {
    const char* name;
    std::string header;
    const char* fault;
  } kRows[] = {
      {"nothing", "", "no universal exit sequence at the beginning"},
      {"no exit sequence", kBegin.substr(9) + kEnd, "no universal exit sequence at the beginning"},
      {"line end after it", "\x1B%-12345X\r\n" + kBegin.substr(9) + kEnd, "line 1: no JOB command"},
      {"no job", "\x1B%-12345X" + kEnd, "line 1: no JOB command"},
      {"job in small letters", "\x1B%-12345X@pjl JOB NAME = \"a\"\r\n" + kEnd,
       "line 1: no JOB command"},
      {"quotation mark in a name", "\x1B%-12345X@PJL JOB NAME = \"a\"b\"\r\n" + kEnd,
       "line 1: no JOB command"},
      {"exit sequence only", "\x1B%-12345X", "line 1: no JOB command"},
      {"no language", kBegin, "no ENTER command in the last line"},
      {"language not last", kBegin + kEnd + "@PJL SET COPIES = 1\r\n",
       "no ENTER command in the last line"},
      {"language twice", kBegin + kEnd + kEnd, "line 2: no assignment"},
      {"end of file in a line", kBegin + kEnd.substr(0, kEnd.size() - 2),
       "the last line is not ended by CR LF"},
      {"LF only", kBegin + "@PJL SET COPIES = 1\n" + kEnd, "line 2: a byte is not printable ASCII"},
      {"CR only", kBegin + "@PJL SET COPIES = 1\r" + kEnd, "line 2: a byte is not printable ASCII"},
      {"tab", kBegin + "@PJL SET COPIES =\t1\r\n" + kEnd, "line 2: a byte is not printable ASCII"},
      {"umlaut", kBegin + "@PJL SET USERNAME = \"\xE4\"\r\n" + kEnd,
       "line 2: a byte is not printable ASCII"},
      {"second exit sequence", kBegin + "\x1B%-12345X@PJL SET COPIES = 1\r\n" + kEnd,
       "line 2: a byte is not printable ASCII"},
      {"empty line", kBegin + "\r\n" + kEnd, "line 2: no assignment"},
      {"no prefix", kBegin + "SET COPIES = 1\r\n" + kEnd, "line 2: no assignment"},
      {"no value", kBegin + "@PJL SET COPIES = \r\n" + kEnd, "line 2: no assignment"},
      {"conversion left", kBegin + "@PJL SET COPIES = %d\r\n" + kEnd, "line 2: no assignment"},
      {"two words", kBegin + "@PJL SET USERNAME = A B\r\n" + kEnd, "line 2: no assignment"},
      {"open text", kBegin + "@PJL SET USERNAME = \"A\r\n" + kEnd, "line 2: no assignment"},
      {"set twice", kBegin + "@PJL SET A = 1\r\n@PJL SET B = 1\r\n@PJL SET A = 2\r\n" + kEnd,
       "line 4: a variable is set again"},
  };
  for (const auto& row : kRows) EXPECT_EQ(findPjlFault(row.header), row.fault) << row.name;
}

}  // namespace
