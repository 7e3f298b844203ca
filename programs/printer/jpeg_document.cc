#include "programs/printer/jpeg_document.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "host/base/descriptor.h"
#include "programs/printer/postscript_image.h"

namespace driver_feature::printer {

namespace {

constexpr double kMargin = 18;  // A quarter of an inch.

unsigned at(std::string_view bytes, std::size_t place) {
  return static_cast<unsigned char>(bytes[place]);
}

unsigned twoAt(std::string_view bytes, std::size_t place) {
  return at(bytes, place) << 8 | at(bytes, place + 1);
}

// Whether the marker begins a frame that PostScript can decode: baseline, extended
// or progressive.
bool isFrame(unsigned marker) {
  return marker >= 0xc0 && marker <= 0xc2;
}

struct Segment {
  unsigned marker = 0;
  std::string_view data;
};

// The next segment of the head; nothing at its end.
std::optional<Segment> nextSegment(std::string_view& rest) {
  while (rest.size() >= 2 && at(rest, 0) == 0xff && at(rest, 1) == 0xff) rest.remove_prefix(1);
  if (rest.size() < 4 || at(rest, 0) != 0xff) return std::nullopt;
  const unsigned marker = at(rest, 1);
  const unsigned length = twoAt(rest, 2);
  if (length < 2 || rest.size() - 2 < length || marker == 0xda) return std::nullopt;
  const Segment segment{marker, rest.substr(4, length - 2)};
  rest.remove_prefix(2 + length);
  return segment;
}

std::optional<ImageForm> formOf(std::string_view file) {
  if (!file.starts_with("\xff\xd8")) return std::nullopt;
  std::string_view rest = file.substr(2);
  bool isAdobe = false;
  while (const auto segment = nextSegment(rest)) {
    if (segment->marker == 0xee && segment->data.starts_with("Adobe")) isAdobe = true;
    if (!isFrame(segment->marker) || segment->data.size() < 6) continue;
    ImageForm form;
    form.height = twoAt(segment->data, 1);
    form.width = twoAt(segment->data, 3);
    form.components = at(segment->data, 5);
    form.decoder = "DCTDecode";
    // Programs that write this mark store CMYK the other way round.
    form.isInverted = isAdobe && form.components == 4;
    const bool isKnown = form.components == 1 || form.components == 3 || form.components == 4;
    if (at(segment->data, 0) != 8 || !isKnown || form.width == 0 || form.height == 0) break;
    return form;
  }
  return std::nullopt;
}

// From the unit square to the place on the paper.
std::string placing(const ImageForm& form, const Paper& paper) {
  double width = paper.width - 2 * kMargin;
  double height = paper.height - 2 * kMargin;
  const bool isTurned = (form.width > form.height) != (width > height);
  if (isTurned) std::swap(width, height);
  const double scale = std::min(width / form.width, height / form.height);
  const double wide = form.width * scale;
  const double high = form.height * scale;
  return translation(paper.width / 2.0, paper.height / 2.0) + (isTurned ? "90 rotate\n" : "") +
         translation(-wide / 2, -high / 2) + scaling(wide, high);
}

}  // namespace

host::Result<> writeJpegAsPostScript(int input, int output, const Paper& paper) {
  const std::string file = host::readAll(input);
  const auto form = formOf(file);
  if (!form) {
    return host::fail(host::Problem::Kind::kMalformed,
                      "the document is not a JPEG picture that can be printed");
  }
  DocumentWriter writer(output);
  writer.put(documentBegin());
  writer.put(pageBegin(1, paper.width, paper.height));
  writer.put(placing(*form, paper));
  writer.put(imageOperator(*form));
  Ascii85 data(writer);
  data.put(file);
  data.finish();
  writer.put(pageEnd());
  writer.put(documentEnd(1));
  if (writer.finish()) return {};
  return host::fail(host::Problem::Kind::kNotWritten, "the converted document cannot be written");
}

}  // namespace driver_feature::printer
