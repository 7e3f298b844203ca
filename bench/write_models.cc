// Writes the generated models:
//
//   write_models FOLDER [SIZE]...
//   write_models --lists FOLDER LISTS CHOICES   one model of lists of any length

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
    written =
        written && write((folder + carrier.kind).append(number), descriptionText(size, carrier));
  }
  return written;
}

// "lists_ps_300_40" and "lists_ppd_300_40".
bool writeLists(const std::string& folder, const std::string& lists, const std::string& choices) {
  using namespace driver_feature::bench;
  const int features = std::atoi(lists.c_str());
  const int length = std::atoi(choices.c_str());
  std::string shape = lists;
  shape.append("_").append(choices);
  return write(folder + "lists_ps_" + shape, descriptionText(features, kPSCarrier, length)) &&
         write(folder + "lists_ppd_" + shape, ppdText(features, length));
}

}  // namespace

int main(int argc, char** argv) {
  using namespace driver_feature::bench;
  if (argc == 5 && argv[1] == std::string("--lists")) {
    return writeLists(std::string(argv[2]) + "/", argv[3], argv[4]) ? 0 : 1;
  }
  if (argc < 2 || argv[1][0] == '-') {
    std::cerr << "usage: write_models FOLDER [SIZE]...\n"
                 "       write_models --lists FOLDER LISTS CHOICES\n";
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
