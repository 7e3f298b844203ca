#include "host/page_server/page.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "host/page_server/page_fixture.h"

namespace driver_feature::page_server {
namespace {

TEST_F(PageTest, Change_ReachesEveryListener_AndTheState) {
  start();
  Listener one(port_, head("GET /events"));
  Listener two(port_, head("GET /events"));
  const nlohmann::json reply = set("Duplex", "On");
  EXPECT_EQ(reply["values"]["Duplex"], "On");
  EXPECT_EQ(one.next("state"), reply);
  EXPECT_EQ(two.next("state"), reply);
  EXPECT_EQ(state(), reply);
  EXPECT_EQ(get("model?language=de%2DAT").substr(0, 40),
            R"(200 {"language":"de-AT","loaded":true})");
}

TEST_F(PageTest, Responses_KeepBrowsersFromEverythingElse) {
  start();
  for (const std::string name : {"state", "nothing", "settings.conf", "source?file=office.xml"}) {
    const std::string response = exchange("GET /" + name);
    EXPECT_NE(response.find("\r\nContent-Security-Policy: default-src 'none'; script-src 'self'; "
                            "style-src 'self'; img-src 'self'; connect-src 'self'; base-uri "
                            "'none'; form-action 'none'; frame-ancestors 'none'\r\n"
                            "X-Content-Type-Options: nosniff\r\nReferrer-Policy: no-referrer\r\n"
                            "Cross-Origin-Opener-Policy: same-origin\r\n"
                            "Cross-Origin-Resource-Policy: same-origin\r\n"
                            "Cache-Control: no-store\r\n"),
              std::string::npos)
        << name << ": " << response;
  }
}

TEST_F(PageTest, RequestsOfOtherPages_AreRefused) {
  start();
  struct Row {
    std::string fields, get, post;
  };
  const std::string foreign = "Origin: http://example.com";
  const std::string other = "Origin: http://127.0.0.1:" + std::to_string(port_ == 80 ? 81 : 80);
  const std::vector<Row> rows = {
      {ownOrigin(), "200", "200"},
      {"Sec-Fetch-Site: same-origin", "200", "200"},
      {ownOrigin() + "\r\nSec-Fetch-Site: same-origin", "200", "200"},
      {"X-None: 1", "200", "403"},
      {"Sec-Fetch-Site: none", "200", "403"},
      {"Sec-Fetch-Site: same-site", "403", "403"},
      {"Sec-Fetch-Site: cross-site", "403", "403"},
      {"Origin: null", "403", "403"},
      {foreign, "403", "403"},
      {other, "403", "403"},
      {foreign + "\r\nSec-Fetch-Site: same-origin", "403", "403"},
      {ownOrigin() + "\r\n" + foreign, "403", "403"},
      {ownOrigin() + "\r\nSec-Fetch-Site: cross-site", "403", "403"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(get("state", row.fields).substr(0, 3), row.get) << row.fields;
    EXPECT_EQ(post("do", R"({"do":"state"})", row.fields).substr(0, 3), row.post) << row.fields;
  }
}

TEST_F(PageTest, RequestsThatAreNone_HaveAStatus) {
  setting_.requestBytes = 100;
  start();
  EXPECT_EQ(post("do", "[1]"), "400 400 Bad Request: the body must be a JSON object with \"do\"\n");
  EXPECT_EQ(post("save", "{}"),
            "400 400 Bad Request: the body must be a JSON object with \"as\"\n");
  EXPECT_EQ(post("do", "{\"do\":\"\xff\"}").substr(0, 3), "400");
  EXPECT_EQ(post("do", std::string(101, ' ')).substr(0, 3), "413");
  EXPECT_EQ(post("state", "{}").substr(0, 3), "404");
  EXPECT_EQ(get("do").substr(0, 3), "405");
  EXPECT_EQ(get("nothing").substr(0, 3), "404");
  EXPECT_EQ(brief(exchange("POST /do", ownOrigin() + "\r\nContent-Length: 2", "{}")).substr(0, 3),
            "415");
}

TEST_F(PageTest, RequestThatCrashes_LeavesTheValuesBefore) {
  setting_.check = [](host::EventLoop&, const page::PageRequest&,
                      const auto& done) -> host::Result<std::unique_ptr<ChildText>> {
    done(R"([{"text":"found"}])");
    return std::unique_ptr<ChildText>();
  };
  start();
  Listener listener(port_, head("GET /events"));
  set("Duplex", "On");
  set("Pin", "1234");
  EXPECT_EQ(set("Duplex", "Crash")["problem"],
            "The description crashed: its process was ended by signal 9. Nothing has changed.");
  EXPECT_EQ(listener.next("crash"),
            nlohmann::json::parse(R"({"text":"The description crashed: its process was ended by )"
                                  R"(signal 9.","findings":[{"text":"found"}]})"));
  EXPECT_EQ(postScript(), "%On 1234\n");
  set("Duplex", "Off");
  EXPECT_EQ(postScript(), "%Off 1234\n");
}

TEST_F(PageTest, CrashWhoseCheckOutlastsTheNextLoad_IsTold) {
  const std::string gate = folder_ / "gate";
  ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
  setting_.check = checkThatWaitsFor(gate);
  start();
  Listener listener(port_, head("GET /events"));
  set("Duplex", "Crash");
  EXPECT_EQ(postScript(), "%Off \n");  // Loaded again.
  write("gate", "");
  EXPECT_EQ(listener.next("crash")["findings"], nlohmann::json::parse(R"([{"line":3}])"));
}

TEST_F(PageTest, CheckThatTakesLong_IsNotWaitedForToTellOfTheFault) {
  const std::string gate = folder_ / "gate";
  ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
  setting_.check = checkThatWaitsFor(gate);
  start();
  Listener listener(port_, head("GET /events"));
  const auto model = [this] { return nlohmann::json::parse(get("model").substr(4)); };
  write("office.xml", "fatal");
  EXPECT_EQ(listener.next("model"),
            nlohmann::json::parse(R"({"loaded":false,"revision":1,"serial":2})"));
  EXPECT_EQ(model()["findings"], nlohmann::json::array());
  write("gate", "");
  EXPECT_EQ(listener.next("model")["loaded"], false);
  EXPECT_EQ(model()["findings"], nlohmann::json::parse(R"([{"line":3}])"));
}

TEST_F(PageTest, RequestThatTakesTooLong_LeavesTheValuesBefore) {
  setting_.worker.replyTime = std::chrono::milliseconds(1000);
  start();
  set("Duplex", "On");
  EXPECT_EQ(set("Duplex", "Hang")["problem"],
            "The description did not reply within 1 second. Nothing has changed.");
  EXPECT_EQ(postScript(), "%On \n");
}

TEST_F(PageTest, SavedDescription_IsLoadedWithTheValuesThatStillExist) {
  start();
  Listener listener(port_, head("GET /events"));
  set("Duplex", "On");
  set("Pin", "1234");
  write("office.xml", "new");
  const nlohmann::json event = listener.next("model");
  EXPECT_EQ(event["revision"], 1);
  EXPECT_EQ(postScript(), "%On 1234\nnew");
  write("office.xml", "simplex");
  EXPECT_EQ(listener.next("model")["revision"], 2);
  EXPECT_EQ(postScript(), "%Off 1234\nsimplex");
  write("office.rules.xml", "x");
  EXPECT_EQ(listener.next("model")["revision"], 3);
}

TEST_F(PageTest, ValuesThatCrashWhenRestored_AreGivenUp) {
  start();
  Listener listener(port_, head("GET /events"));
  set("Duplex", "On");
  write("office.xml", "fragile");
  listener.next("model");
  EXPECT_EQ(postScript(), "%Off \nfragile");
}

TEST_F(PageTest, Picture_IsToldOfToEveryListener_AlsoToALateOne) {
  start();
  const std::string problem = "There is no picture: Ghostscript (gs) is not installed.";
  Listener one(port_, head("GET /events"));
  EXPECT_EQ(one.next("picture")["problem"], problem);
  Listener late(port_, head("GET /events"));
  EXPECT_EQ(late.next("picture")["problem"], problem);
  EXPECT_EQ(get("page.png?serial=1"), "404 " + problem + "\n");
}

TEST_F(PageTest, Picture_IsThatOfTheTextAfterAChangeOfAPartOfIt) {
  const std::filesystem::path program = folder_ / "gs";
  write("gs", "#!/bin/sh\ncp settings.ps '" + folder_.string() + "/drawn.ps'\nexit 1\n");
  std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  setting_.ghostscript = program;
  write("office.xml", "brief");
  start();
  Listener listener(port_, head("GET /events"));
  EXPECT_EQ(listener.next("picture")["serial"], 1);
  set("Duplex", "LongEdge");
  EXPECT_EQ(listener.next("picture")["serial"], 2);
  EXPECT_EQ(host::readFile((folder_ / "drawn.ps").string()).value(),
            "%\xF0\x9F\x96\xA8LongEdge \nbrief");
}

TEST_F(PageTest, VisitorOfADescriptionThatCannotBeLoaded_IsNotToldWhy) {
  setting_.isForAuthor = false;
  write("office.xml", "refused");
  start();
  const nlohmann::json model = nlohmann::json::parse(get("model").substr(4));
  EXPECT_EQ(model["loaded"], false);
  EXPECT_EQ(model["mode"], "printer");
  EXPECT_EQ(model["ended"], "");
}

TEST_F(PageTest, DescriptionThatEndsItsProcess_IsShownWithFindings_UntilItLoads) {
  int checks = 0;
  setting_.check = [&checks](host::EventLoop&, const page::PageRequest&,
                             const auto& done) -> host::Result<std::unique_ptr<ChildText>> {
    ++checks;
    done("[{\"line\":" + std::to_string(checks) + "}]");
    return std::unique_ptr<ChildText>();
  };
  start();
  Listener listener(port_, head("GET /events"));
  set("Duplex", "On");
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"fatal", "The description ended its process with status 1."},
      {"refused", "It is refused."},
      {"silent", "The description crashed: its process was ended by signal 9."}};
  int number = 0;
  for (const auto& [words, ended] : rows) {
    write("office.xml", words);
    listener.next("model");
    const nlohmann::json model = nlohmann::json::parse(get("model").substr(4));
    EXPECT_EQ(model["loaded"], false);
    EXPECT_EQ(model["file"], "office.xml");
    EXPECT_EQ(model["ended"], ended);
    EXPECT_EQ(model["findings"][0]["line"], ++number);
    EXPECT_EQ(set("Duplex", "Off")["problem"], "The description is not loaded.");
    EXPECT_EQ(get("page.png").substr(0, 3), "404");
  }
  write("office.xml", "good");
  listener.next("model");
  EXPECT_EQ(postScript(), "%On \ngood");
}

}  // namespace
}  // namespace driver_feature::page_server
