// The requests of a page.

#include <filesystem>
#include <utility>

#include <nlohmann/json.hpp>

#include "host/base/input_file.h"
#include "host/page_server/admission.h"
#include "host/page_server/assets.h"
#include "host/page_server/json_text.h"
#include "host/page_server/page.h"
#include "host/page_server/query.h"
#include "host/page_server/saved_file.h"
#include "host/page_server/takers.h"

namespace driver_feature::page_server {

namespace {

using Json = nlohmann::json;

host::Response jsonResponse(std::string json) {
  return {HTTP_STATUS_OK, "application/json", std::move(json)};
}

host::Response safe(host::Response response) {
  for (host::Field& field : safeFields()) response.fields.push_back(std::move(field));
  return response;
}

std::string stemOf(const std::string& description) {
  return std::filesystem::path(description).stem().string();
}

}  // namespace

Page::Answer Page::handle(const host::Request& request, const std::string& name) {
  Answer made = answer(request, name);
  if (auto* response = std::get_if<host::Response>(&made)) return safe(std::move(*response));
  return made;
}

Page::Answer Page::answer(const host::Request& request, const std::string& name) {
  const bool isShown = name.empty() || findAsset(name) != nullptr;
  if (isShown ? !mayOpen(request) : !isFromOwnPage(request)) {
    return host::plainResponse(HTTP_STATUS_FORBIDDEN);
  }
  const bool isForPost = name == "do" || (name == "save" && setting_.isForAuthor);
  if (isForPost != (request.method == host::Method::kPost)) {
    return host::plainResponse(isForPost ? HTTP_STATUS_METHOD_NOT_ALLOWED : HTTP_STATUS_NOT_FOUND);
  }
  if (!isForPost) return get(request, name);
  if (request.contentType != "application/json") {
    return host::plainResponse(HTTP_STATUS_UNSUPPORTED_MEDIATYPE);
  }
  return std::make_unique<WholeBody>(
      setting_.requestBytes, life_,
      [this, name](host::RequestNumber number, const std::string& body) {
        takeRequest(number, name, body);
      });
}

Page::Answer Page::get(const host::Request& request, const std::string& name) {
  if (const Asset* asset = findAsset(name.empty() ? "index.html" : name)) {
    return host::Response{HTTP_STATUS_OK, std::string(asset->type), std::string(asset->text)};
  }
  const auto json = [this](const std::string& reply) {
    return jsonResponse(reply.empty() ? notLoaded() : reply);
  };
  if (name == "model" || name == "state") {
    Json question = {{"do", name}};
    const std::string language = queryValue(request.query, "language");
    if (!language.empty()) question["language"] = language;
    return ask(jsonText(question), json);
  }
  if (name == "events") return listen(request);
  if (name == "page.png") return getPicture(request);
  if (name == "settings.conf") {
    return ask(R"({"do":"settings"})", [](const std::string& reply) {
      const Json settings = Json::parse(reply, nullptr, false);
      if (!settings.is_object() || !settings.contains("text")) {
        return host::plainResponse(HTTP_STATUS_NOT_FOUND);
      }
      host::Response response{HTTP_STATUS_OK, "text/plain; charset=utf-8",
                              settings.value("text", "")};
      response.fields.push_back({"Content-Disposition", "attachment; filename=\"settings.conf\""});
      return response;
    });
  }
  if (name == "source" && setting_.isForAuthor) return getSource(request);
  return host::plainResponse(HTTP_STATUS_NOT_FOUND);
}

// The newcomer learns what the others know.
host::Response Page::listen(const host::Request& request) {
  std::string first = EventClients::text("hello", presence());
  if (isPictureCurrent()) first += EventClients::text("picture", pictureText());
  auto response = clients_.add(request, first);
  wantPicture();
  return response;
}

Page::Answer Page::ask(const std::string& request, Made made) {
  return std::make_unique<WholeBody>(
      0, life_,
      [this, request, made = std::move(made)](host::RequestNumber number, const std::string&) {
        expect(number);
        worker_->ask(request,
                     [this, number, made](const std::string& text) { reply(number, made(text)); });
      });
}

Page::Answer Page::getPicture(const host::Request& request) {
  if (worker_->hasFailed()) return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  if (isPictureCurrent()) return pictureResponse();
  const long serial = std::strtol(queryValue(request.query, "serial").c_str(), nullptr, 10);
  return std::make_unique<WholeBody>(
      0, life_, [this, serial](host::RequestNumber number, const std::string&) {
        expect(number);
        pictureWaits_.emplace_back(number, serial);
        wantPicture();
      });
}

host::Response Page::getSource(const host::Request& request) const {
  const auto file =
      sourceFile(setting_.worker.request.description, queryValue(request.query, "file"));
  if (!file) return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  auto text = host::readFile(*file);
  if (!text) return host::plainResponse(HTTP_STATUS_NOT_FOUND);
  return {HTTP_STATUS_OK, "text/plain; charset=utf-8", std::move(*text)};
}

void Page::takeRequest(host::RequestNumber number, const std::string& name,
                       const std::string& body) {
  expect(number);
  const Json request = Json::parse(body, nullptr, false);
  const bool isRequest = request.is_object() && request.contains(name == "do" ? "do" : "as");
  if (!isRequest) {
    return reply(number, {HTTP_STATUS_BAD_REQUEST, "text/plain; charset=utf-8",
                          "400 Bad Request: the body must be a JSON object with \"" +
                              std::string(name == "do" ? "do" : "as") + "\"\n"});
  }
  if (name == "save") return save(number, request);
  worker_->ask(body, [this, number](const std::string& text) {
    reply(number, jsonResponse(text.empty() ? notLoaded() : text));
  });
}

void Page::save(host::RequestNumber number, const Json& request) {
  const auto text = [&request](const char* key) {
    const auto found = request.find(key);
    return found != request.end() && found->is_string() ? found->get<std::string>() : "";
  };
  const bool isPreset = text("as") == "preset";
  std::string name = text("name");
  if (name.empty() && !isPreset) name = stemOf(setting_.worker.request.description);
  const auto file = savedFile(setting_.worker.request.description,
                              isPreset ? SavedKind::kPreset : SavedKind::kSettings, name);
  if (!file) {
    return reply(number,
                 jsonResponse(jsonText({{"ok", false}, {"problem", describe(file.error())}})));
  }
  const auto replace = request.find("replace");
  const bool replaces = replace != request.end() && *replace == true;
  worker_->ask(isPreset ? R"({"do":"preset-text"})" : R"({"do":"settings"})",
               [this, number, file = *file, replaces](const std::string& settings) {
                 replyWithText(number, file, replaces, settings);
               });
}

void Page::replyWithText(host::RequestNumber number, const std::string& file, bool replaces,
                         const std::string& settings) {
  const Json got = Json::parse(settings, nullptr, false);
  if (!got.is_object() || !got.contains("text")) {
    return reply(number, jsonResponse(settings.empty() ? notLoaded() : settings));
  }
  const auto saved = saveText(file, got.value("text", ""), replaces);
  const std::string shown = std::filesystem::path(file).filename().string();
  Json result = {{"ok", saved && *saved != SaveEnd::kOther}, {"file", shown}};
  if (!saved) {
    result["problem"] = describe(saved.error());
  } else if (*saved == SaveEnd::kOther) {
    result["exists"] = true;
    result["problem"] = shown + " already exists, with other settings";
  } else {
    result["same"] = *saved == SaveEnd::kSame;
  }
  reply(number, jsonResponse(jsonText(result)));
}

void Page::reply(host::RequestNumber number, host::Response response) {
  expected_.erase(number);
  server_.reply(number, safe(std::move(response)));
}

}  // namespace driver_feature::page_server
