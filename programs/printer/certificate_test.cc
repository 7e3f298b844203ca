#include "programs/printer/certificate.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "host/server/tls.h"

namespace driver_feature::printer {
namespace {

namespace fs = std::filesystem;

constexpr std::time_t kYear = 365 * 86400;

std::string textIn(const std::string& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class CertificateTest : public ::testing::Test {
 protected:
  CertificateTest() {
    std::string name = (fs::temp_directory_path() / "certificate-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
  }
  ~CertificateTest() override { fs::remove_all(folder_); }

  CertificateFiles files(const std::vector<std::string>& names, std::time_t now) {
    const auto made = ownCertificate(folder_ / "tls", names, now);
    EXPECT_TRUE(made);
    return made ? *made : CertificateFiles{};
  }

  fs::path folder_;
};

TEST_F(CertificateTest, Certificate_IsKeptUntilItIsNearItsEndOrLacksAName) {
  const std::time_t now = std::time(nullptr);
  const CertificateFiles first = files({"printers"}, now);
  EXPECT_EQ(first.certificate, folder_ / "tls/printers.crt");
  EXPECT_EQ(first.key, folder_ / "tls/printers.key");
  EXPECT_TRUE(host::TlsCredentials::load(first.certificate, first.key));
  const std::string text = textIn(first.certificate);
  files({"printers"}, now + 9 * kYear);
  EXPECT_EQ(textIn(first.certificate), text);
  files({"printers", "office.example"}, now);
  const std::string named = textIn(first.certificate);
  EXPECT_NE(named, text);
  files({"printers", "office.example"}, now);
  EXPECT_EQ(textIn(first.certificate), named);
  files({"printers", "office.example"}, now + 10 * kYear - 29 * 86400);
  EXPECT_NE(textIn(first.certificate), named);
}

TEST_F(CertificateTest, Files_AreForTheirOwnerOnly) {
  const CertificateFiles made = files({"printers"}, std::time(nullptr));
  for (const std::string& path : {made.key, (folder_ / "tls").string()}) {
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0077U, 0U) << path;
  }
}

TEST_F(CertificateTest, BrokenKey_IsRefusedWithItsFile) {
  const CertificateFiles made = files({"printers"}, std::time(nullptr));
  std::ofstream(made.key) << "no key";
  const auto loaded = host::TlsCredentials::load(made.certificate, made.key);
  ASSERT_FALSE(loaded);
  EXPECT_EQ(describe(loaded.error()),
            "the certificate " + made.certificate + " cannot be used with the key " + made.key +
                ": The requested data were not available; give two PEM files "
                "that fit");
}

TEST_F(CertificateTest, FolderThatCannotBeMade_IsReported) {
  std::ofstream(folder_ / "tls") << "a file";
  const auto made = ownCertificate(folder_ / "tls", {"printers"}, std::time(nullptr));
  ASSERT_FALSE(made);
  EXPECT_EQ(describe(made.error()),
            (folder_ / "tls").string() + ": no certificate can be made there: Not a directory");
}

}  // namespace
}  // namespace driver_feature::printer
