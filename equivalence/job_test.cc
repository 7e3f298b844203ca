#include "equivalence/job.h"

#include <gtest/gtest.h>

namespace driver_feature::equivalence {

namespace {

TEST(Job, Sections_AreAroundAPage) {
  std::string postScript;
  for (const char* name : {"ExitServer", "Prolog", "DocumentSetup", "AnySetup", "PageSetup"}) {
    postScript += std::string("%DriverSection ") + name + "\n/" + name + "\n\n%EndDriverSection\n";
  }
  EXPECT_EQ(jobOf({postScript, "@PJL\n", "@PJL\n"}),
            "%!PS-Adobe-3.0\n"
            "%%Pages: 1\n"
            "%%EndComments\n"
            "%%BeginProlog\n"
            "/Prolog\n"
            "%%EndProlog\n"
            "%%BeginSetup\n"
            "/DocumentSetup\n"
            "/AnySetup\n"
            "%%EndSetup\n"
            "%%Page: 1 1\n"
            "%%BeginPageSetup\n"
            "/PageSetup\n"
            "%%EndPageSetup\n"
            "showpage\n"
            "%%Trailer\n"
            "(job has ended\\n) print flush\n"
            "%%EOF\n");
}

}  // namespace

}  // namespace driver_feature::equivalence
