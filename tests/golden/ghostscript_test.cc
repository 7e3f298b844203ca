#include "golden/ghostscript.h"

namespace {

TEST_F(GhostscriptTest, FindFaults_GoodCode_ReturnsNothing) {
  EXPECT_EQ(findFaults({{"nothing", ""}, {"copies", "<< /NumCopies 2 >> setpagedevice\n"}}), "");
}

TEST_F(GhostscriptTest, FindFaults_BadCodeAmongGood_NamesEachBadOne) {
  EXPECT_EQ(findFaults({{"good", "<< /NumCopies 2 >> setpagedevice\n"},
                        {"unknown operator", "<< /NumCopies 2 >> setpagedevise\n"},
                        {"open dictionary", "<< /NumCopies 2 setpagedevice\n"},
                        {"open string", "<< /JobName (A >> setuserparams\n"},
                        {"open procedure", "<< /Install { >> setpagedevice\n"},
                        {"wrong type", "<< /NumCopies (2) >> setpagedevice\n"},
                        {"unknown key", "<< /NumCopys 2 >> setpagedevice\n"},
                        {"key without value", "<< /NumCopies >> setpagedevice\n"},
                        {"conversion left", "<< /NumCopies %d >> setpagedevice\n"},
                        {"something left", "<< /NumCopies 2 >>\n"},
                        {"dictionary left", "5 dict begin\n"},
                        {"fault of a page", "<< /BeginPage { pop nonsense } >> setpagedevice\n"},
                        {"good again", "<< /Duplex true >> setpagedevice\n"}}),
            "unknown operator: undefined\n"
            "open dictionary: typecheck\n"
            "open string: syntaxerror\n"
            "open procedure: syntaxerror\n"
            "a value has the wrong type, of NumCopies\n"
            "a key is unknown, NumCopys\n"
            "key without value: rangecheck\n"
            "conversion left: objects are left on the operand stack\n"
            "something left: objects are left on the operand stack\n"
            "dictionary left: a dictionary is left open\n"
            "fault of a page: undefined\n");
}

TEST_F(GhostscriptTest, FindFaults_CodeEndsTheProcess_IsAFault) {
  EXPECT_EQ(findFaults({{"quits", "quit\n"}, {"good", ""}}), "not all cases were run\n");
}

TEST_F(GhostscriptTest, FindPaintedBox_ReturnsTheCorners) {
  EXPECT_EQ(findPaintedBox(""), "0 0 0 0");
  // Ghostscript adds the width of a pixel.
  EXPECT_EQ(findPaintedBox("10 20 30 40 rectfill\n"), "9 19 41 61");
  EXPECT_EQ(findPaintedBox("nonsense\n").substr(0, 6), "no box");
}

}  // namespace
