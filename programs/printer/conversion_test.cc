#include "programs/printer/conversion.h"

#include <cups/raster.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "host/base/descriptor.h"
#include "programs/printer/arguments.h"
#include "programs/printer/device.h"
#include "programs/printer/postscript_image.h"

namespace driver_feature::printer {
namespace {

namespace fs = std::filesystem;

class ConversionTest : public ::testing::Test {
 protected:
  ConversionTest() {
    std::string name = (fs::temp_directory_path() / "conversion-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
  }
  ~ConversionTest() override { fs::remove_all(folder_); }

  // The document as PostScript, or the problem.
  std::string converted(const std::string& format, const std::string& document) {
    std::ofstream(folder_ / "in", std::ios::binary) << document;
    const int output = ::open((folder_ / "out").c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    const auto done = convert(format, folder_ / "in", output, {100, 200});
    ::lseek(output, 0, SEEK_SET);
    const std::string text = host::readAll(output);
    ::close(output);
    return done ? text : describe(done.error());
  }

  // A raster of one page of white lines; `damage` changes its header.
  std::string raster(const std::function<void(cups_page_header2_t&)>& damage = {}, int lines = 2,
                     cups_mode_t mode = CUPS_RASTER_WRITE) {
    cups_page_header2_t page{};
    page.HWResolution[0] = page.HWResolution[1] = 72;
    page.cupsWidth = 3;
    page.cupsHeight = 2;
    page.cupsBitsPerColor = page.cupsBitsPerPixel = 8;
    page.cupsBytesPerLine = 3;
    page.cupsNumColors = 1;
    page.cupsColorSpace = CUPS_CSPACE_SW;
    if (damage) damage(page);
    const int file = ::open((folder_ / "raster").c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    cups_raster_t* writer = ::cupsRasterOpen(file, mode);
    ::cupsRasterWriteHeader2(writer, &page);
    std::vector<unsigned char> line(page.cupsBytesPerLine, 0x41);
    for (int i = 0; i < lines; ++i)
      ::cupsRasterWritePixels(writer, line.data(), page.cupsBytesPerLine);
    ::cupsRasterClose(writer);
    ::lseek(file, 0, SEEK_SET);
    const std::string bytes = host::readAll(file);
    ::close(file);
    return bytes;
  }

  fs::path folder_;
};

TEST(FormatOf, FirstBytes_SayTheType) {
  EXPECT_EQ(formatOf("%PDF-1.4"), "application/pdf");
  EXPECT_EQ(formatOf("%!PS"), "application/postscript");
  EXPECT_EQ(formatOf("\x04%!PS"), "application/postscript");
  EXPECT_EQ(formatOf("\x1b%-12345X@PJL"), "application/postscript");
  EXPECT_EQ(formatOf("\xff\xd8\xff\xe0"), "image/jpeg");
  EXPECT_EQ(formatOf("RaS2PwgRaster"), "image/pwg-raster");
  EXPECT_EQ(formatOf("UNIRAST"), "image/urf");
  EXPECT_EQ(formatOf("hello"), "");
  EXPECT_EQ(formatOf(""), "");
  EXPECT_TRUE(isDocumentFormat("application/octet-stream"));
  EXPECT_FALSE(isDocumentFormat("text/plain"));
}

// A program that writes its limits in place of pages.
TEST_F(ConversionTest, Converter_HasLimitsThatEndWithIt) {
  std::ofstream(folder_ / "pdftops") << "#!/bin/sh\nulimit -t\nulimit -f\n";
  fs::permissions(folder_ / "pdftops", fs::perms::owner_all);
  const std::string path = ::getenv("PATH");
  ::setenv("PATH", (folder_.string() + ":" + path).c_str(), 1);
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  // In blocks of half a kibibyte.
  EXPECT_EQ(converted("application/pdf", "%PDF-"), "3600\n16777216\n");
  rlimit after{};
  ::getrlimit(RLIMIT_FSIZE, &after);
  EXPECT_EQ(after.rlim_cur, before.rlim_cur);
  ::setenv("PATH", path.c_str(), 1);
}

TEST_F(ConversionTest, Raster_OfGrey_IsAnImage) {
  EXPECT_EQ(
      converted("image/pwg-raster", raster()),
      "%!PS-Adobe-3.0\n%%LanguageLevel: 2\n%%Pages: (atend)\n%%EndComments\n%%Page: 1 1\n"
      "%%PageBoundingBox: 0 0 3 2\nsave\n3.00 2.00 scale\n/DeviceGray setcolorspace\n"
      "<< /ImageType 1 /Width 3 /Height 2 /BitsPerComponent 8 /Decode [0 1] /ImageMatrix "
      "[3 0 0 -2 0 2] /DataSource currentfile /ASCII85Decode filter /RunLengthDecode filter >> "
      "image\nr^$NLJ,~>\nrestore\nshowpage\n%%Trailer\n%%Pages: 1\n%%EOF\n");
}

TEST_F(ConversionTest, AppleRaster_OfGrey_IsTheSameImage) {
  const std::string apple = raster({}, 2, CUPS_RASTER_WRITE_APPLE);
  ASSERT_EQ(formatOf(apple), "image/urf");
  EXPECT_EQ(converted("image/urf", apple), converted("image/pwg-raster", raster()));
}

TEST_F(ConversionTest, Raster_Damaged_IsRefused) {
  const std::string size = "the raster document has a page of no usable size";
  const std::string colours =
      "the raster document has colours that are not supported; send grey or RGB with 8 bits";
  const std::string lines = "the raster document has lines of another length than its pages";
  EXPECT_EQ(converted("image/pwg-raster", "RaS2"), "the raster document has no page");
  EXPECT_EQ(converted("image/pwg-raster", "hello"),
            "the raster document is not one of PWG or Apple raster");
  EXPECT_EQ(converted("image/pwg-raster", raster({}, 1)),
            "the raster document ends in the middle of a page");
  EXPECT_EQ(converted("image/pwg-raster", raster([](auto& page) { page.HWResolution[0] = 0; })),
            size);
  EXPECT_EQ(converted("image/pwg-raster", raster([](auto& page) { page.cupsHeight = 60001; })),
            size);
  EXPECT_EQ(converted("image/pwg-raster",
                      raster([](auto& page) { page.cupsColorSpace = CUPS_CSPACE_CIELab; })),
            colours);
  EXPECT_EQ(converted("image/pwg-raster", raster([](auto& page) { page.cupsBytesPerLine = 2; })),
            lines);
}

std::string jpeg(int components, int precision = 8) {
  return std::string("\xff\xd8\xff\xe0\0\4ab\xff\xc0\0\x08", 12) + static_cast<char>(precision) +
         std::string("\0\x0a\0\x14", 4) + static_cast<char>(components);
}

TEST_F(ConversionTest, Jpeg_WidePictureOnHighPaper_IsTurned) {
  // 20 by 10 on 100 by 200 with margins of 18: 64 by 164, turned, is scaled by 6.4.
  const std::string text = converted("image/jpeg", jpeg(3));
  EXPECT_NE(
      text.find(
          "save\n50.00 100.00 translate\n90 rotate\n-64.00 -32.00 translate\n128.00 64.00 scale\n"
          "/DeviceRGB setcolorspace\n<< /ImageType 1 /Width 20 /Height 10 "),
      std::string::npos)
      << text;
}

TEST_F(ConversionTest, Jpeg_Damaged_IsRefused) {
  const std::string refusal = "the document is not a JPEG picture that can be printed";
  const std::string whole = jpeg(1);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(converted("image/jpeg", whole.substr(0, size)), refusal) << size;
  }
  EXPECT_NE(converted("image/jpeg", whole), refusal);
  EXPECT_EQ(converted("image/jpeg", jpeg(2)), refusal);
  EXPECT_EQ(converted("image/jpeg", jpeg(3, 12)), refusal);
}

TEST_F(ConversionTest, Pdf_Damaged_IsRefused) {
  const std::string problem = converted("application/pdf", "%PDF-1.4\nnonsense");
  EXPECT_EQ(problem.substr(problem.find(" ends")), " ends with exit status 1");
}

TEST(RunLengths, Bytes_AreRunsAndLiterals) {
  EXPECT_EQ(runLengths("abaaaa"), std::string("\1ab\xfd", 4) + "a");
  EXPECT_EQ(runLengths(std::string(130, 'a')), std::string("\x81"
                                                           "a\1aa"));
  EXPECT_EQ(runLengths(""), "");
}

TEST(CheckDevice, Kinds_AreKnownOrRefused) {
  EXPECT_TRUE(checkDevice("file:/dev/null"));
  EXPECT_TRUE(checkDevice("file:///tmp/"));
  EXPECT_TRUE(checkDevice("socket://printer.example"));
  EXPECT_EQ(describe(checkDevice("file:jobs").error()),
            "the device file:jobs needs an absolute path, such as file:/tmp/jobs/");
  EXPECT_EQ(describe(checkDevice("file:/no/such/folder/").error()),
            "the device file:/no/such/folder/ is not a folder; make it first");
  EXPECT_EQ(describe(checkDevice("socket:").error()),
            "the device socket: needs a host, such as socket://printer:9100");
  for (const std::string uri : {"", "printer", "../../bin/sh:x", "nonesuch://a"}) {
    EXPECT_EQ(describe(checkDevice(uri).error()),
              "the device " + uri +
                  " is of an unknown kind; give file:/FOLDER/, socket://HOST:PORT or one that the "
                  "print scheduler has a backend for");
  }
}

// The problem of a command line.
std::string lineProblem(std::vector<const char*> words) {
  words.insert(words.begin(), "driver-feature-printer");
  const auto line = readLine(static_cast<int>(words.size()), words.data());
  return line ? "" : describe(line.error());
}

TEST(ReadLine, WrongUsage_IsRefused) {
  const char* file = OFFICE_DESCRIPTION;
  const std::string office = std::string("office=") + file;
  EXPECT_EQ(lineProblem({}),
            "no printer is given; give NAME=DESCRIPTION.xml; driver-feature-printer --help "
            "explains the usage");
  EXPECT_EQ(lineProblem({"office"}),
            "the printer \"office\" has no description; give NAME=DESCRIPTION.xml");
  EXPECT_EQ(lineProblem({"../a=x"}),
            "a printer cannot be called \"../a\"; use up to 127 letters, digits, \"-\" and \"_\"");
  EXPECT_EQ(lineProblem({"a=/none.xml"}), "/none.xml: cannot be read: No such file or directory");
  EXPECT_EQ(lineProblem({office.c_str(), office.c_str()}),
            "two printers are called \"office\"; give each a name of its own");
  EXPECT_EQ(lineProblem({office.c_str()}),
            "no device is given; give --device with the place where jobs go, such as "
            "socket://printer.example or file:/tmp/jobs/");
  EXPECT_NE(lineProblem({"--nonesuch", office.c_str()})
                .find("driver-feature-printer --help explains the usage"),
            std::string::npos);
}

}  // namespace
}  // namespace driver_feature::printer
