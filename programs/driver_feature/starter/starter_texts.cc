#include "programs/driver_feature/starter/starter_texts.h"

namespace driver_feature::cli {

namespace {

constexpr std::string_view kRoutines =
    R"source(// The routines that @NAME@.xml names. They are found by their C names.

#include <string>

#include "model/core_feature.h"
#include "model/core_feature_set.h"

class DriverFeatureSet;  // A CoreFeatureSet, its only base.

namespace {

// The feature's current value; empty when there is no such feature.
std::string valueOf(DriverFeatureSet* set, const std::string& name) {
  std::string value;
  CoreFeatureSet* features = reinterpret_cast<CoreFeatureSet*>(set);
  CoreFeature* feature = features->FindFeatureInFeatureList(name);
  if (feature != nullptr) feature->getFeatureProperty(std::string("ValueString"), value);
  return value;
}

// The text as a PostScript string.
std::string inParentheses(const std::string& text) {
  std::string result = "(";
  for (char character : text) {
    if (character == '(' || character == ')' || character == '\\') result += '\\';
    result += character;
  }
  return result + ")";
}

}  // namespace

// Output routine of Stamp: the text on each page, nothing for an empty one.
extern "C" __attribute__((visibility("default"))) void WriteStamp(DriverFeatureSet* set,
                                                                  std::string& output) {
  const std::string text = valueOf(set, "Stamp");
  if (text.empty()) return;
  output += "<< /BeginPage { pop /Helvetica 24 selectfont 36 36 moveto " + inParentheses(text) +
            " show } >> setpagedevice\n";
}
)source";

constexpr std::string_view kCMake =
    R"cmake(# The library of routines, and tests of the whole driver.
cmake_minimum_required(VERSION 3.16)
project(@NAME@ LANGUAGES CXX)

find_package(DriverFeature 1.0 REQUIRED)

add_library(routines MODULE routines.cc)
set_target_properties(routines PROPERTIES OUTPUT_NAME @NAME@)
target_link_libraries(routines PRIVATE DriverFeature::headers)

enable_testing()
find_program(DRIVER_FEATURE driver-feature
  HINTS ${DriverFeature_DIR}/../../../bin ${DriverFeature_DIR}/../../../../bin)
if(NOT DRIVER_FEATURE)
  message(FATAL_ERROR "the program driver-feature is needed; give -DDRIVER_FEATURE=PATH")
endif()
add_test(NAME check
  COMMAND ${DRIVER_FEATURE} check --strict --callbacks $<TARGET_FILE:routines>
          ${CMAKE_CURRENT_SOURCE_DIR}/@NAME@.xml)
add_test(NAME cases
  COMMAND ${DRIVER_FEATURE} test --callbacks $<TARGET_FILE:routines>
          ${CMAKE_CURRENT_SOURCE_DIR}/cases)
)cmake";

constexpr std::string_view kReadme = R"md(# @NAME@

The driver of a printer: its feature description, the routines that the description names, and
cases that keep its output from changing unnoticed.

| File | What is in it |
|---|---|
| `@NAME@.xml` | the description: each setting of the printer, and what it writes |
| `routines.cc`, `CMakeLists.txt` | the library of routines: what a template cannot write |
| `cases/` | settings (`NAME.conf`), and what they are expected to write |

## Next steps

1. Build the routines. PREFIX is where libDriverFeature is installed; leave `-D...` out if it came
   with a package.

       cmake -S . -B build -DCMAKE_PREFIX_PATH=PREFIX
       cmake --build build

2. Check the description, and run the cases. `ctest --test-dir build` does both.

       driver-feature check --callbacks build/lib@NAME@.so @NAME@.xml
       driver-feature test cases

3. Look at the features, and at what they write.

       driver-feature --callbacks build/lib@NAME@.so show @NAME@.xml
       driver-feature --callbacks build/lib@NAME@.so emit @NAME@.xml --to ps -o media=Letter

4. Describe your printer in `@NAME@.xml`, one feature at a time, and check it after each.
   `driver-feature check @NAME@.xml --watch` does so whenever the file is saved.

5. When an output changes, `driver-feature test cases` shows how. If it is what you meant, accept it:

       driver-feature test cases --update

6. Add a case for what must not break: choose the settings, and let the expected outputs be written.
   Read them before you keep them.

       driver-feature --callbacks build/lib@NAME@.so show @NAME@.xml -o Copies=2 \
         --save cases/two_copies.conf
       driver-feature test cases --update

7. Print. `driver-feature queue` makes the PPD of a print queue; see `driver-feature queue --help`.
)md";

constexpr std::string_view kDriver =
    "# The description and routines of these cases; paths begin at this folder.\n"
    "Description=../@NAME@.xml\n"
    "Routines=../build/lib@NAME@.so\n";

constexpr StarterText kTexts[] = {
    {"README.md", kReadme},
    {"CMakeLists.txt", kCMake},
    {"routines.cc", kRoutines},
    {"cases/driver.txt", kDriver},
    {"cases/defaults.conf", "# Nothing is set: the defaults.\n"},
    {"cases/defaults.ps",
     "<< /NumCopies 1 >> setpagedevice\n"
     "<< /Duplex false >> setpagedevice\n"
     "<< /PageSize [595 842] >> setpagedevice\n"},
    {"cases/defaults.pjl",
     "\x1B%-12345X@PJL\r\n"
     "@PJL SET COPIES=1\r\n"
     "@PJL SET DUPLEX=OFF\r\n"
     "@PJL SET JOBNAME=\"job\"\r\n"
     "@PJL SET PAPER=A4\r\n"
     "@PJL ENTER LANGUAGE=POSTSCRIPT\r\n"},
    {"cases/defaults.ticket",
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
     "<JobTicket argument1=\"\" argument2=\"\">\n"
     "  <JobTicketAttributes>\n"
     "    <Command name=\"copies\" syntax=\"integer\" value=\"1\"/>\n"
     "    <Command name=\"sides\" syntax=\"keyword\" value=\"one-sided\"/>\n"
     "  </JobTicketAttributes>\n"
     "  <OutputAttributes>\n"
     "    <Command name=\"media\" syntax=\"keyword\" value=\"iso_a4_210x297mm\"/>\n"
     "  </OutputAttributes>\n"
     "</JobTicket>\n"},
    {"cases/stamped.conf",
     "Copies=3\n"
     "Duplex=LongEdge\n"
     "JobName=Report 7\n"
     "PageSize=Letter\n"
     "Stamp=Draft (2)\n"},
    {"cases/stamped.ps",
     "<< /NumCopies 3 >> setpagedevice\n"
     "<< /Duplex true /Tumble false >> setpagedevice\n"
     "<< /PageSize [612 792] >> setpagedevice\n"
     "<< /BeginPage { pop /Helvetica 24 selectfont 36 36 moveto (Draft \\(2\\)) show } >> "
     "setpagedevice\n"},
    {"cases/stamped.pjl",
     "\x1B%-12345X@PJL\r\n"
     "@PJL SET COPIES=3\r\n"
     "@PJL SET DUPLEX=ON\r\n"
     "@PJL SET JOBNAME=\"Report 7\"\r\n"
     "@PJL SET PAPER=LETTER\r\n"
     "@PJL ENTER LANGUAGE=POSTSCRIPT\r\n"},
    {"cases/stamped.ticket",
     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
     "<JobTicket argument1=\"\" argument2=\"\">\n"
     "  <JobTicketAttributes>\n"
     "    <Command name=\"copies\" syntax=\"integer\" value=\"3\"/>\n"
     "    <Command name=\"sides\" syntax=\"keyword\" value=\"two-sided-long-edge\"/>\n"
     "  </JobTicketAttributes>\n"
     "  <OutputAttributes>\n"
     "    <Command name=\"media\" syntax=\"keyword\" value=\"na_letter_8.5x11in\"/>\n"
     "  </OutputAttributes>\n"
     "</JobTicket>\n"},
    {"cases/too_many_copies.conf",
     "# A refused setting: the case writes messages only.\nCopies=100\n"},
    {"cases/too_many_copies.log",
     "too_many_copies.conf:2: 100 is out of range; give a whole number, from 1 to 99 "
     "(../@NAME@.xml)\n"},
};

}  // namespace

std::span<const StarterText> starterTexts() {
  return kTexts;
}

}  // namespace driver_feature::cli
