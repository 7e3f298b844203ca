#include "programs/printer/job_record.h"

#include <nlohmann/json.hpp>

namespace driver_feature::printer {

namespace {

using Json = nlohmann::json;

bool isState(int state) {
  return state >= IPP_JSTATE_PENDING && state <= IPP_JSTATE_COMPLETED;
}

std::vector<host::Setting> optionsOf(const Json& list) {
  std::vector<host::Setting> options;
  for (const Json& pair : list.get_ref<const Json::array_t&>()) {
    options.push_back({pair.at(0).get<std::string>(), pair.at(1).get<std::string>()});
  }
  return options;
}

}  // namespace

std::string recordOf(const Job& job) {
  Json options = Json::array();
  for (const host::Setting& option : job.options) options.push_back({option.name, option.value});
  const Json record = {
      {"number", job.number},   {"printer", job.printer}, {"name", job.name},
      {"user", job.user},       {"format", job.format},   {"state", static_cast<int>(job.state)},
      {"reason", job.reason},   {"message", job.message}, {"isIncoming", job.isIncoming},
      {"created", job.created}, {"begun", job.begun},     {"ended", job.ended},
      {"bytes", job.bytes},     {"copies", job.copies},   {"sheets", job.sheets},
      {"width", job.width},     {"height", job.height},   {"options", options},
  };
  return record.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}

host::Result<Job> jobOfRecord(const std::string& text) {
  const auto malformed = [] {
    return host::fail(host::Problem::Kind::kMalformed, "is not the record of a job");
  };
  try {
    const Json record = Json::parse(text);
    Job job;
    job.number = record.at("number").get<int>();
    job.printer = record.at("printer").get<std::string>();
    job.name = record.at("name").get<std::string>();
    job.user = record.at("user").get<std::string>();
    job.format = record.at("format").get<std::string>();
    const int state = record.at("state").get<int>();
    if (!isState(state) || job.number < 1) return malformed();
    job.state = static_cast<ipp_jstate_t>(state);
    job.reason = record.at("reason").get<std::string>();
    job.message = record.at("message").get<std::string>();
    job.isIncoming = record.at("isIncoming").get<bool>();
    job.created = record.at("created").get<std::int64_t>();
    job.begun = record.at("begun").get<std::int64_t>();
    job.ended = record.at("ended").get<std::int64_t>();
    job.bytes = record.at("bytes").get<std::uint64_t>();
    job.copies = record.at("copies").get<int>();
    job.width = record.at("width").get<int>();
    job.height = record.at("height").get<int>();
    job.sheets = record.at("sheets").get<int>();
    job.options = optionsOf(record.at("options"));
    return job;
  } catch (const Json::exception&) {
    return malformed();
  }
}

}  // namespace driver_feature::printer
