#include "programs/printer/certificate.h"

#include <cups/cups.h>
#include <sys/stat.h>

#include <algorithm>
#include <system_error>

namespace driver_feature::printer {

namespace fs = std::filesystem;

namespace {

constexpr std::time_t kDay = 86400;
constexpr std::time_t kLifeTime = 3650 * kDay;
constexpr std::time_t kNearEnd = 30 * kDay;

bool isUsable(const fs::path& folder, const std::vector<std::string>& names, std::time_t now) {
  cups_array_t* credentials = nullptr;
  if (::httpLoadCredentials(folder.c_str(), &credentials, names.front().c_str()) != 0) {
    return false;
  }
  const bool isRight =
      ::httpCredentialsGetExpiration(credentials) > now + kNearEnd &&
      std::all_of(names.begin(), names.end(), [credentials](const std::string& name) {
        return ::httpCredentialsAreValidForName(credentials, name.c_str()) != 0;
      });
  ::httpFreeCredentials(credentials);
  return isRight;
}

host::Failure notMade(const fs::path& folder, const std::string& reason) {
  host::Problem problem{host::Problem::Kind::kNotWritten,
                        "no certificate can be made there: " + reason, ""};
  problem.file = folder.string();
  return host::Failure(std::move(problem));
}

}  // namespace

host::Result<CertificateFiles> ownCertificate(const fs::path& folder,
                                              const std::vector<std::string>& names,
                                              std::time_t now) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (!error) fs::permissions(folder, fs::perms::owner_all, error);
  if (error) return notMade(folder, error.message());
  const std::string& name = names.front();
  CertificateFiles files{folder / (name + ".crt"), folder / (name + ".key")};
  const bool isThere = fs::exists(files.certificate, error) && fs::exists(files.key, error);
  if (isThere && isUsable(folder, names, now)) return files;
  std::vector<const char*> others;
  for (std::size_t i = 1; i < names.size(); ++i) others.push_back(names[i].c_str());
  // libcups gives the files the rights that the process allows.
  const mode_t mask = ::umask(0077);
  const int made =
      ::cupsMakeServerCredentials(folder.c_str(), name.c_str(), static_cast<int>(others.size()),
                                  others.data(), now + kLifeTime);
  ::umask(mask);
  if (made == 0) return notMade(folder, ::cupsLastErrorString());
  return files;
}

}  // namespace driver_feature::printer
