// What a page reads and writes beside its description.

#include <gtest/gtest.h>

#include "host/page_server/page_fixture.h"

namespace driver_feature::page_server {
namespace {

TEST_F(PageTest, Saving_NeverOverwritesWithoutNeed) {
  start();
  const auto save = [this](const std::string& request) { return post("save", request); };
  EXPECT_EQ(save(R"({"as":"settings"})"),
            R"(200 {"file":"office.settings","ok":true,"same":false})");
  EXPECT_EQ(host::readFile((folder_ / "office.settings").string()).value(), "Duplex=Off\n");
  EXPECT_EQ(save(R"({"as":"settings","name":"office"})"),
            R"(200 {"file":"office.settings","ok":true,"same":true})");
  set("Duplex", "On");
  EXPECT_EQ(save(R"({"as":"settings"})"),
            R"(200 {"exists":true,"file":"office.settings","ok":false,)"
            R"("problem":"office.settings already exists, with other settings"})");
  EXPECT_EQ(host::readFile((folder_ / "office.settings").string()).value(), "Duplex=Off\n");
  EXPECT_EQ(save(R"({"as":"settings","replace":true})"),
            R"(200 {"file":"office.settings","ok":true,"same":false})");
  EXPECT_EQ(host::readFile((folder_ / "office.settings").string()).value(), "Duplex=On\n");
}

TEST_F(PageTest, Saving_StaysInTheFolder) {
  start();
  std::filesystem::create_symlink("/tmp/elsewhere", folder_ / "link.settings");
  for (const std::string name : {"../x", "a/b", "..", ".hidden", "a\\\\b", "a\\nb", "link"}) {
    const std::string reply = post("save", R"({"as":"settings","name":")" + name + "\"}");
    EXPECT_NE(reply.find("\"ok\":false,\"problem\""), std::string::npos) << reply;
  }
  std::filesystem::create_directory_symlink("/tmp/elsewhere", folder_ / "office.presets");
  for (const std::string request : {R"({"as":"settings","name":"link","replace":true})",
                                    R"({"as":"preset","name":"draft","replace":true})"}) {
    EXPECT_NE(post("save", request).find(" is a link, or in one; give another name"),
              std::string::npos)
        << request;
  }
  std::filesystem::remove(folder_ / "office.presets");
  EXPECT_NE(post("save", R"({"as":"preset"})").find("\"ok\":false"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists("/tmp/elsewhere"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 2);
}

TEST_F(PageTest, Source_IsThatOfTheDescriptionAndTheFilesBesideIt) {
  write("office.xml", "text");
  write("office.de.po", "texte");
  write("secret.xml", "secret");
  start();
  EXPECT_EQ(get("source?file=office.xml"), "200 text");
  EXPECT_EQ(get("source?file=office.de.po"), "200 texte");
  for (const std::string file : {"secret.xml", "../etc/passwd", "", "/etc/passwd", "."}) {
    EXPECT_EQ(get("source?file=" + file).substr(0, 3), "404") << file;
  }
}

TEST_F(PageTest, VisitorsPage_HasNothingForAuthors) {
  setting_.isForAuthor = false;
  start();
  Listener listener(port_, head("GET /events"));
  EXPECT_EQ(get("source?file=office.xml").substr(0, 3), "404");
  EXPECT_EQ(post("save", R"({"as":"settings"})").substr(0, 3), "404");
  write("office.xml", "new");
  EXPECT_EQ(set("Duplex", "On")["outputs"]["ps"]["text"], "%On \n");
}

}  // namespace
}  // namespace driver_feature::page_server
