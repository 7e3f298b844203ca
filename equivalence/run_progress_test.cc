#include "equivalence/run_progress.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace driver_feature::equivalence {

namespace {

TEST(RunProgress, OnATerminal_RewritesOneLine) {
  std::ostringstream output;
  RunProgress progress(output, true, 4);
  progress.step(false, 10);
  progress.step(true, 65);
  progress.finish();
  EXPECT_EQ(output.str(),
            "\r[#######.......................] 1/4, 0 with findings, 0:30 left "
            "\r[###############...............] 2/4, 1 with findings, 1:05 left \n");
}

TEST(RunProgress, Elsewhere_WritesTwentyLines) {
  std::ostringstream output;
  RunProgress progress(output, false, 40);
  for (int i = 1; i <= 40; ++i) progress.step(i == 2, i * 60.0);
  progress.finish();
  const std::string text = output.str();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 20);
  EXPECT_EQ(text.substr(0, text.find('\n', text.find('\n') + 1) + 1),
            "corpus: 2 of 40 PPDs, 1 with findings, 2:00\n"
            "corpus: 4 of 40 PPDs, 1 with findings, 4:00\n");
  EXPECT_TRUE(text.ends_with("corpus: 40 of 40 PPDs, 1 with findings, 40:00\n"));
}

}  // namespace

}  // namespace driver_feature::equivalence
