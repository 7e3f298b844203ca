#include "host/ppd/plain/job_language.h"

#include <gtest/gtest.h>

#include <string>

namespace driver_feature::ppd {
namespace {

TEST(JobLanguage, HexadecimalBytes_AreDecoded) {
  EXPECT_EQ(decodedValue("<1B>%-12345X@PJL<0d0A>"), "\x1b%-12345X@PJL\r\n");
  EXPECT_EQ(decodedValue("a <x> <"), "a <x> <");
  EXPECT_EQ(decodedValue("<41 and more"), "A");
  EXPECT_EQ(decodedValue(""), "");
}

TEST(JobLanguage, PjlBegin_GetsTheJobsNames) {
  EXPECT_EQ(jobBeginOf("\x1b%-12345X@PJL JOB\n@PJL SET A=1\n", 7, "jane", "folder/title"),
            "\x1b%-12345X@PJL\n@PJL SET A=1\n"
            "@PJL JOB NAME = \"title\" DISPLAY = \"7 jane title\"\n"
            "@PJL SET USERNAME = \"jane\"\n");
}

TEST(JobLanguage, LongNames_AreCut) {
  const std::string title(70, 't');
  const std::string user(70, 'u');
  EXPECT_EQ(jobBeginOf("\x1b%-12345X@PJL\n", 7, user, title),
            "\x1b%-12345X@PJL\n@PJL\n@PJL JOB NAME = \"" + std::string(64, 't') +
                "\" DISPLAY = \"7 " + std::string(30, 'u') + "\"\n@PJL SET USERNAME = \"" +
                std::string(64, 'u') + "\"\n");
}

TEST(JobLanguage, OtherBegin_IsKept) {
  EXPECT_EQ(jobBeginOf("%-begin\n", 7, "jane", "title"), "%-begin\n");
  EXPECT_EQ(jobBeginOf("", 7, "jane", "title"), "");
}

TEST(JobLanguage, PjlEnd_ClearsTheDisplay) {
  EXPECT_EQ(jobEndOf("\x1b%-12345X@PJL EOJ\n\x1b%-12345X"),
            "\x1b%-12345X@PJL\n@PJL RDYMSG DISPLAY = \"\"\n@PJL EOJ\n\x1b%-12345X");
  EXPECT_EQ(jobEndOf("end"), "end");
}

}  // namespace
}  // namespace driver_feature::ppd
