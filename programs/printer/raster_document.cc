#include "programs/printer/raster_document.h"

#include <cups/raster.h>

#include <memory>
#include <string>
#include <vector>

#include "programs/printer/postscript_image.h"

namespace driver_feature::printer {

namespace {

// What no page of a printer reaches.
constexpr unsigned kMostPixels = 60000;  // In one direction.
constexpr unsigned kMostLineBytes = 250000;
constexpr unsigned kMostResolution = 4800;
constexpr int kMostPages = 100000;

host::Failure malformed(const std::string& text) {
  return host::fail(host::Problem::Kind::kMalformed, "the raster document " + text);
}

// The image's form for the colours that are supported; without a width for others.
ImageForm formOf(const cups_page_header2_t& page) {
  ImageForm form;
  switch (page.cupsColorSpace) {
    case CUPS_CSPACE_W:
    case CUPS_CSPACE_SW:
      break;
    case CUPS_CSPACE_K:
      form.isInverted = true;
      break;
    case CUPS_CSPACE_RGB:
    case CUPS_CSPACE_SRGB:
    case CUPS_CSPACE_ADOBERGB:
      form.components = 3;
      break;
    case CUPS_CSPACE_CMYK:
      form.components = 4;
      break;
    default:
      return {};
  }
  form.bits = page.cupsBitsPerColor;
  const bool isDeep = form.bits == 8 || (form.bits == 1 && form.components == 1);
  if (!isDeep || page.cupsBitsPerPixel != form.bits * form.components) return {};
  form.width = page.cupsWidth;
  form.height = page.cupsHeight;
  form.decoder = "RunLengthDecode";
  return form;
}

host::Result<ImageForm> checkedForm(const cups_page_header2_t& page) {
  const bool isSized = page.cupsWidth > 0 && page.cupsWidth <= kMostPixels && page.cupsHeight > 0 &&
                       page.cupsHeight <= kMostPixels && page.HWResolution[0] > 0 &&
                       page.HWResolution[0] <= kMostResolution && page.HWResolution[1] > 0 &&
                       page.HWResolution[1] <= kMostResolution;
  if (!isSized) return malformed("has a page of no usable size");
  ImageForm form = formOf(page);
  if (form.width == 0 || page.cupsColorOrder != CUPS_ORDER_CHUNKED) {
    return malformed("has colours that are not supported; send grey or RGB with 8 bits");
  }
  const unsigned least = (form.width * form.bits * form.components + 7) / 8;
  if (page.cupsBytesPerLine < least || page.cupsBytesPerLine > kMostLineBytes) {
    return malformed("has lines of another length than its pages");
  }
  return form;
}

// The pixels from the top to the bottom.
host::Result<> copyPixels(cups_raster_t& raster, const cups_page_header2_t& page,
                          const ImageForm& form, DocumentWriter& writer) {
  Ascii85 data(writer);
  std::vector<unsigned char> line(page.cupsBytesPerLine);
  const std::size_t used = (form.width * form.bits * form.components + 7) / 8;
  for (unsigned i = 0; i < page.cupsHeight; ++i) {
    if (::cupsRasterReadPixels(&raster, line.data(), page.cupsBytesPerLine) !=
        page.cupsBytesPerLine) {
      return malformed("ends in the middle of a page");
    }
    data.put(runLengths({reinterpret_cast<const char*>(line.data()), used}));
  }
  data.put({&kRunLengthEnd, 1});
  data.finish();
  return {};
}

}  // namespace

host::Result<> writeRasterAsPostScript(int input, int output) {
  const std::unique_ptr<cups_raster_t, void (*)(cups_raster_t*)> raster(
      ::cupsRasterOpen(input, CUPS_RASTER_READ), &::cupsRasterClose);
  if (!raster) return malformed("is not one of PWG or Apple raster");
  DocumentWriter writer(output);
  writer.put(documentBegin());
  int pages = 0;
  cups_page_header2_t page{};
  while (::cupsRasterReadHeader2(raster.get(), &page) != 0) {
    auto form = checkedForm(page);
    if (!form) return failureOf(form);
    if (++pages > kMostPages) return malformed("has too many pages");
    const double width = page.cupsWidth * 72.0 / page.HWResolution[0];
    const double height = page.cupsHeight * 72.0 / page.HWResolution[1];
    writer.put(pageBegin(pages, width, height));
    writer.put(scaling(width, height));
    writer.put(imageOperator(*form));
    if (auto copied = copyPixels(*raster, page, *form, writer); !copied) return copied;
    writer.put(pageEnd());
  }
  if (pages == 0) return malformed("has no page");
  writer.put(documentEnd(pages));
  if (writer.finish()) return {};
  return host::fail(host::Problem::Kind::kNotWritten, "the converted document cannot be written");
}

}  // namespace driver_feature::printer
