# Writes the source with the files of the page:
#   cmake -D OUTPUT=assets.cc -D FOLDER=assets -P make_assets.cmake

set(type_html "text/html; charset=utf-8")
set(type_css "text/css; charset=utf-8")
set(type_js "text/javascript; charset=utf-8")
set(type_svg "image/svg+xml")

file(GLOB files ${FOLDER}/*.html ${FOLDER}/*.css ${FOLDER}/*.js ${FOLDER}/*.svg)
list(SORT files)
set(rows "")
foreach(file IN LISTS files)
  get_filename_component(name "${file}" NAME)
  string(REGEX MATCH "[a-z]+$" ending "${name}")
  # As numbers: no character of a file means anything here.
  file(READ "${file}" digits HEX)
  string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${digits}")
  string(MAKE_C_IDENTIFIER "k_${name}" identifier)
  string(APPEND arrays "constexpr char ${identifier}[] = {${bytes}'\\0'};\n")
  string(APPEND rows "    {\"${name}\", \"${type_${ending}}\", "
    "{${identifier}, sizeof ${identifier} - 1}},\n")
endforeach()

file(WRITE "${OUTPUT}" "// Made of the folder assets.
#include \"host/page_server/assets.h\"

namespace driver_feature::page_server {

namespace {

${arrays}
constexpr Asset kAssets[] = {
    {\"\", \"\", \"\"},
${rows}};

}  // namespace

const Asset* findAsset(std::string_view name) {
  if (name.empty()) return nullptr;
  for (const Asset& asset : kAssets) {
    if (asset.name == name) return &asset;
  }
  return nullptr;
}

}  // namespace driver_feature::page_server
")
