// Writes the generated models: write_models FOLDER

#include <fstream>
#include <iostream>
#include <string>

#include "bench/generated_model.h"
#include "bench/operation.h"

namespace {

bool write(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (file) return true;
  std::cerr << path << ": cannot be written\n";
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace driver_feature::bench;
  if (argc != 2) {
    std::cerr << "usage: write_models FOLDER\n";
    return 2;
  }
  const std::string folder = std::string(argv[1]) + "/";
  bool written = write(folder + "records_0", recordDescriptionText());
  for (const int size : kFeatureCounts) {
    const std::string number = "_" + std::to_string(size);
    written = written && write(folder + "ppd" + number, ppdText(size)) &&
              write(folder + "typed" + number, typedDescriptionText(size)) &&
              write(folder + "wide" + number, descriptionText(size, kPSCarrier, 2 * kChoices));
    for (const Carrier& carrier : {kPSCarrier, kPJLCarrier, kTicketCarrier}) {
      written = written && write(folder + carrier.kind + number, descriptionText(size, carrier));
    }
  }
  return written ? 0 : 1;
}
