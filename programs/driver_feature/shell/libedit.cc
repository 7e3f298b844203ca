#include "programs/driver_feature/shell/libedit.h"

#include "host/base/late_library.h"

namespace driver_feature::cli {

namespace {

constexpr host::LateLibrary kLibrary(EDIT_FILE_NAME, "libedit2");

Libedit load() {
  return {
      .init = kLibrary.function<decltype(::el_init)>("el_init"),
      .end = kLibrary.function<decltype(::el_end)>("el_end"),
      .get = kLibrary.function<decltype(::el_wget)>("el_wget"),
      .set = kLibrary.function<decltype(::el_wset)>("el_wset"),
      .readLine = kLibrary.function<decltype(::el_wgets)>("el_wgets"),
      .line = kLibrary.function<decltype(::el_wline)>("el_wline"),
      .type = kLibrary.function<decltype(::el_wpush)>("el_wpush"),
      .insertText = kLibrary.function<decltype(::el_winsertstr)>("el_winsertstr"),
      .deleteBefore = kLibrary.function<decltype(::el_deletestr)>("el_deletestr"),
      .moveCursor = kLibrary.function<decltype(::el_cursor)>("el_cursor"),
      .resize = kLibrary.function<decltype(::el_resize)>("el_resize"),
      .readSettings = kLibrary.function<decltype(::el_source)>("el_source"),
      .history = kLibrary.function<decltype(::history_w)>("history_w"),
      .beginHistory = kLibrary.function<decltype(::history_winit)>("history_winit"),
      .endHistory = kLibrary.function<decltype(::history_wend)>("history_wend"),
  };
}

}  // namespace

const Libedit& libedit() {
  static const Libedit functions = load();
  return functions;
}

}  // namespace driver_feature::cli
