#include "programs/filter/page_options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace driver_feature::filter {
namespace {

using Kind = PageOptionKind;

struct Row {
  const char* name;
  const char* value;
  Kind kind;
  const char* reason = "";
};

TEST(PageOptions, EachOption_IsKnownByItsValue) {
  for (const Row& row : std::vector<Row>{
           {"PageSize", "A4", Kind::kNone},
           {"number-up", "1", Kind::kIdle},
           {"number-up", "16", Kind::kWork},
           {"Number-Up", "2", Kind::kWork},
           {"number-up", "3", Kind::kRefused, "\"3\" is unknown; give 1, 2, 4, 6, 9 or 16"},
           {"number-up", "", Kind::kRefused, "\"\" is unknown; give 1, 2, 4, 6, 9 or 16"},
           {"number-up", "1 2", Kind::kRefused, "\"1 2\" is unknown; give 1, 2, 4, 6, 9 or 16"},
           {"number-up-layout", "BTRL", Kind::kDetail},
           {"number-up-layout", "spiral", Kind::kRefused,
            "\"spiral\" is unknown; give lrtb, lrbt, rltb, rlbt, tblr, tbrl, btlr or btrl"},
           {"page-border", "none", Kind::kIdle},
           {"page-border", "double-thick", Kind::kWork},
           {"page-border", "dots", Kind::kRefused,
            "\"dots\" is unknown; give none, single, single-thick, double or double-thick"},
           {"page-set", "all", Kind::kIdle},
           {"page-set", "even", Kind::kWork},
           {"page-set", "prime", Kind::kRefused, "\"prime\" is unknown; give all, even or odd"},
           {"orientation-requested", "3", Kind::kIdle},
           {"orientation-requested", "7", Kind::kIdle},
           {"orientation-requested", "5", Kind::kWork},
           {"orientation-requested", "8", Kind::kRefused, "\"8\" is unknown; give 3, 4, 5 or 6"},
           {"outputorder", "normal", Kind::kIdle},
           {"OutputOrder", "Reverse", Kind::kWork},
           {"outputorder", "odd", Kind::kRefused, "\"odd\" is unknown; give normal or reverse"},
           {"page-ranges", "1-2,4", Kind::kWork},
           {"page-ranges", "-3", Kind::kWork},
           {"page-ranges", "", Kind::kRefused,
            "\"\" is not a list of pages; give one such as 1-4,7"},
           {"page-ranges", "all", Kind::kRefused,
            "\"all\" is not a list of pages; give one such as 1-4,7"},
           {"page-ranges", "-", Kind::kRefused,
            "\"-\" is not a list of pages; give one such as 1-4,7"},
           {"page-label", "", Kind::kIdle},
           {"page-label", "Draft", Kind::kWork},
           {"mirror", "true", Kind::kWork},
           {"mirror", "no", Kind::kIdle},
           {"fit-to-page", "True", Kind::kWork},
           {"fit-to-page", "false", Kind::kIdle},
           {"ipp-attribute-fidelity", "true", Kind::kWork},
           {"landscape", "", Kind::kWork},
           {"landscape", "true", Kind::kWork},
           {"landscape", "Off", Kind::kIdle},
           {"Collate", "yes", Kind::kCollation},
           {"collate", "false", Kind::kIdle},
           {"multiple-document-handling", "single-document", Kind::kCollation},
           {"multiple-document-handling", "separate-documents-uncollated-copies", Kind::kIdle},
           {"page-left", "36", Kind::kDetail},
           {"scaling", "100", Kind::kIdle},
           {"scaling", "50", Kind::kRefused,
            "it is for documents that are converted, and this one was sent as PostScript"},
           {"print-scaling", "auto", Kind::kIdle},
           {"print-scaling", "fill", Kind::kRefused,
            "it is for documents that are converted, and this one was sent as PostScript"},
           {"booklet", "off", Kind::kIdle},
           {"AP_FIRSTPAGE_InputSlot", "Tray1", Kind::kRefused,
            "the first page of a document sent as PostScript has no media of its own"},
       }) {
    const PageOption option = pageOption({row.name, row.value});
    EXPECT_EQ(static_cast<int>(option.kind), static_cast<int>(row.kind))
        << row.name << "=" << row.value;
    EXPECT_EQ(option.reason, row.reason) << row.name << "=" << row.value;
  }
}

TEST(PageOptions, OutputOrder_IsTheLastOne) {
  EXPECT_EQ(outputOrder({}), OutputOrder::kUnsaid);
  EXPECT_EQ(outputOrder({{"outputorder", "normal"}}), OutputOrder::kNormal);
  EXPECT_EQ(outputOrder({{"page-set", "odd"}, {"OutputOrder", "REVERSE"}}), OutputOrder::kReverse);
}

}  // namespace
}  // namespace driver_feature::filter
