// Writes the generated models: write_models FOLDER [SIZE]...

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

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

bool writeModels(const std::string& folder, int size) {
  using namespace driver_feature::bench;
  const std::string number = "_" + std::to_string(size);
  bool written = write(folder + "ppd" + number, ppdText(size)) &&
                 write(folder + "list_ppd" + number, listPPDText(size)) &&
                 write(folder + "typed" + number, typedDescriptionText(size)) &&
                 write(folder + "wide" + number, descriptionText(size, kPSCarrier, 2 * kChoices));
  for (const Carrier& carrier : {kPSCarrier, kPJLCarrier, kTicketCarrier}) {
    written = written && write(folder + carrier.kind + number, descriptionText(size, carrier));
  }
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace driver_feature::bench;
  if (argc < 2) {
    std::cerr << "usage: write_models FOLDER [SIZE]...\n";
    return 2;
  }
  std::vector<int> sizes;
  for (int i = 2; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes = kFeatureCounts;
  const std::string folder = std::string(argv[1]) + "/";
  bool written = write(folder + "records_0", recordDescriptionText()) &&
                 write(folder + "five_0", fiveMembersDescriptionText());
  for (const int size : sizes) written = written && writeModels(folder, size);
  return written ? 0 : 1;
}
