#include "programs/printer/conversion.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "programs/printer/jpeg_document.h"
#include "programs/printer/raster_document.h"
#include "programs/printer/stages.h"

namespace driver_feature::printer {

namespace {

constexpr const char* kPostScript = "application/postscript";
constexpr const char* kPdf = "application/pdf";
constexpr const char* kJpeg = "image/jpeg";
constexpr const char* kPwgRaster = "image/pwg-raster";
constexpr const char* kAppleRaster = "image/urf";

constexpr std::array kFormats = {
    "application/octet-stream", kPdf, kPostScript, kJpeg, kPwgRaster, kAppleRaster};

// A small document may become a large one, and may take for ever.
constexpr rlim64_t kMostSeconds = 3600;  // Of a processor.
constexpr rlim64_t kMostBytes = 8ULL << 30;

// Less of a resource for this process, and the programs that it starts, as long as the
// object lives. Who takes more is ended by the system.
class LessOf final {
 public:
  LessOf(int resource, rlim64_t amount) : resource_(resource) {
    ::getrlimit64(resource_, &before_);
    const rlimit64 less{std::min(amount, before_.rlim_cur), before_.rlim_max};
    ::setrlimit64(resource_, &less);
  }
  ~LessOf() { ::setrlimit64(resource_, &before_); }
  LessOf(const LessOf&) = delete;
  LessOf& operator=(const LessOf&) = delete;

 private:
  int resource_;
  rlimit64 before_{};
};

struct Beginning {
  std::string_view bytes;
  const char* format;
};

constexpr std::array<Beginning, 8> kBeginnings = {{{"%PDF-", kPdf},
                                                   {"%!", kPostScript},
                                                   {"\x04%!", kPostScript},
                                                   {"\x1b%-12345X", kPostScript},
                                                   {"\xff\xd8\xff", kJpeg},
                                                   {"RaS2", kPwgRaster},
                                                   {"2SaR", kPwgRaster},
                                                   {"UNIRAST", kAppleRaster}}};

// Texts stay texts in what these programs write. Pages are put on the paper that was
// chosen: one that asked for its own size would undo the choice.
std::vector<std::string> popplerCommand(const std::string& document, const Paper& paper) {
  std::vector<std::string> command = {"pdftops", "-q", "-level3"};
  if (paper.isKnown()) {
    command.insert(command.end(), {"-paperw", std::to_string(paper.width), "-paperh",
                                   std::to_string(paper.height)});
  } else {
    command.emplace_back("-origpagesizes");
  }
  command.insert(command.end(), {document, "-"});
  return command;
}

std::vector<std::string> ghostscriptCommand(const std::string& document, const Paper& paper) {
  std::vector<std::string> command = {"gs",
                                      "-q",
                                      "-dSAFER",
                                      "-dBATCH",
                                      "-dNOPAUSE",
                                      "-sstdout=%stderr",
                                      "-sDEVICE=ps2write",
                                      "-sOutputFile=-"};
  if (paper.isKnown()) {
    command.insert(command.end(), {"-dDEVICEWIDTHPOINTS=" + std::to_string(paper.width),
                                   "-dDEVICEHEIGHTPOINTS=" + std::to_string(paper.height),
                                   "-dFIXEDMEDIA", "-dPDFFitPage"});
  }
  command.push_back(document);
  return command;
}

host::Result<> convertPdf(const std::string& document, int output, const Paper& paper) {
  for (const auto& command :
       {popplerCommand(document, paper), ghostscriptCommand(document, paper)}) {
    if (!isProgram(command[0])) continue;
    return runStages({{command[0], [&command] { return runProgram(command); }}}, -1, output);
  }
  return host::fail(host::Problem::Kind::kNotLoaded,
                    "PDF cannot be converted; install poppler-utils or ghostscript");
}

}  // namespace

std::span<const char* const> documentFormats() {
  return kFormats;
}

bool isDocumentFormat(std::string_view format) {
  return std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
}

std::string formatOf(std::string_view beginning) {
  for (const Beginning& one : kBeginnings) {
    if (beginning.starts_with(one.bytes)) return one.format;
  }
  return "";
}

host::Result<> convert(const std::string& format, const std::string& document, int output,
                       const Paper& paper) {
  const LessOf time(RLIMIT_CPU, kMostSeconds);
  const LessOf size(RLIMIT_FSIZE, kMostBytes);
  if (format == kPdf) return convertPdf(document, output, paper);
  const int input = ::open(document.c_str(), O_RDONLY | O_CLOEXEC);
  if (input == -1) {
    return host::fail(host::Problem::Kind::kUnreadable,
                      std::string("the document cannot be read: ") + std::strerror(errno));
  }
  host::Result<> done =
      format == kJpeg ? writeJpegAsPostScript(input, output, paper.isKnown() ? paper : kUsualPaper)
                      : writeRasterAsPostScript(input, output);
  ::close(input);
  return done;
}

}  // namespace driver_feature::printer
