// A printer of PAPPL to measure beside driver-feature-printer: it sends PostScript to its
// device as it is, and changes nothing.
//
//   pappl_printer PORT SPOOL DEVICE_URI [COUNT]
//
// Makes COUNT printers, named p1, p2 and so on; 1 without it.
#include <fcntl.h>
#include <pappl/pappl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr const char* kFormat = "application/postscript";

bool printFile(pappl_job_t* job, pappl_pr_options_t* /*options*/, pappl_device_t* device) {
  const int file = ::open(papplJobGetFilename(job), O_RDONLY | O_CLOEXEC);
  if (file == -1) return false;
  papplJobSetImpressions(job, 1);
  std::array<char, 65536> buffer;
  bool isWritten = true;
  for (ssize_t count = 0; (count = ::read(file, buffer.data(), buffer.size())) > 0;) {
    isWritten = papplDeviceWrite(device, buffer.data(), static_cast<std::size_t>(count)) == count;
    if (!isWritten) break;
  }
  ::close(file);
  papplDeviceFlush(device);
  papplJobSetImpressionsCompleted(job, 1);
  return isWritten;
}

bool startNothing(pappl_job_t*, pappl_pr_options_t*, pappl_device_t*) {
  return true;
}
bool page(pappl_job_t*, pappl_pr_options_t*, pappl_device_t*, unsigned) {
  return true;
}
bool line(pappl_job_t*, pappl_pr_options_t*, pappl_device_t*, unsigned, const unsigned char*) {
  return true;
}
bool status(pappl_printer_t*) {
  return true;
}

bool describe(pappl_system_t*, const char*, const char*, const char*, pappl_pr_driver_data_t* data,
              ipp_t**, void*) {
  data->printfile_cb = printFile;
  data->rstartjob_cb = startNothing;
  data->rendjob_cb = startNothing;
  data->rstartpage_cb = page;
  data->rendpage_cb = page;
  data->rwriteline_cb = line;
  data->status_cb = status;
  data->format = kFormat;
  std::snprintf(data->make_and_model, sizeof data->make_and_model, "Example Printer");
  data->ppm = 40;
  data->kind = PAPPL_KIND_DOCUMENT;
  data->color_supported =
      PAPPL_COLOR_MODE_AUTO | PAPPL_COLOR_MODE_COLOR | PAPPL_COLOR_MODE_MONOCHROME;
  data->color_default = PAPPL_COLOR_MODE_AUTO;
  data->raster_types = PAPPL_PWG_RASTER_TYPE_SRGB_8 | PAPPL_PWG_RASTER_TYPE_SGRAY_8;
  data->sides_supported = PAPPL_SIDES_ONE_SIDED | PAPPL_SIDES_TWO_SIDED_LONG_EDGE;
  data->sides_default = PAPPL_SIDES_ONE_SIDED;
  data->duplex = PAPPL_DUPLEX_NORMAL;
  data->orient_default = IPP_ORIENT_NONE;
  data->quality_default = IPP_QUALITY_NORMAL;
  data->num_resolution = 1;
  data->x_resolution[0] = data->y_resolution[0] = data->x_default = data->y_default = 600;
  data->left_right = data->bottom_top = 423;
  data->num_media = 1;
  data->media[0] = "iso_a4_210x297mm";
  data->num_source = 1;
  data->source[0] = "tray-1";
  data->num_type = 1;
  data->type[0] = "stationery";
  data->num_bin = 1;
  data->bin[0] = "top";
  std::snprintf(data->media_default.size_name, sizeof data->media_default.size_name, "%s",
                "iso_a4_210x297mm");
  data->media_default.size_width = 21000;
  data->media_default.size_length = 29700;
  data->media_default.left_margin = data->media_default.right_margin = data->left_right;
  data->media_default.top_margin = data->media_default.bottom_margin = data->bottom_top;
  std::snprintf(data->media_default.source, sizeof data->media_default.source, "tray-1");
  std::snprintf(data->media_default.type, sizeof data->media_default.type, "stationery");
  data->media_ready[0] = data->media_default;
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) return 2;
  pappl_system_t* system = papplSystemCreate(
      PAPPL_SOPTIONS_MULTI_QUEUE | PAPPL_SOPTIONS_NO_TLS, "bench", std::atoi(arguments[1]), nullptr,
      arguments[2], "-", PAPPL_LOGLEVEL_ERROR, nullptr, false);
  papplSystemSetHostName(system, "localhost");
  papplSystemAddListeners(system, "localhost");
  std::array<pappl_pr_driver_t, 1> drivers{};
  drivers[0].name = "passes";
  drivers[0].description = "Example Printer";
  drivers[0].device_id = "";
  papplSystemSetPrinterDrivers(system, static_cast<int>(drivers.size()), drivers.data(), nullptr,
                               nullptr, describe, nullptr);
  const int printers = count > 4 ? std::atoi(arguments[4]) : 1;
  for (int number = 1; number <= printers; ++number) {
    const std::string name = "p" + std::to_string(number);
    if (papplPrinterCreate(system, number, name.c_str(), "passes", "", arguments[3]) == nullptr) {
      std::perror("papplPrinterCreate");
      return 1;
    }
  }
  papplSystemRun(system);
  papplSystemDelete(system);
  return 0;
}
