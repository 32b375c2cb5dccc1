#include "ui/dark_frame.h"

#include <QGuiApplication>
#include <QLibrary>
#include <QPalette>
#include <QStyleHints>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ui/tuner_theme.h"

namespace corvane {
namespace {

using X11 = QNativeInterface::QX11Application;

// The few of libxcb, which Qt's plugin has loaded and whose functions never change. To link it
// would take its headers to build.
struct AtomCookie {
  unsigned sequence;
};
struct AtomReply {
  std::uint8_t type, padding;
  std::uint16_t sequence;
  std::uint32_t length, atom;
};
using InternAtom = AtomCookie (*)(xcb_connection_t*, std::uint8_t onlyIfExists,
                                  std::uint16_t length, const char* name);
using InternAtomReply = AtomReply* (*)(xcb_connection_t*, AtomCookie, void** error);
using ChangeProperty = AtomCookie (*)(xcb_connection_t*, std::uint8_t mode, std::uint32_t window,
                                      std::uint32_t property, std::uint32_t type,
                                      std::uint8_t format, std::uint32_t length, const void* data);

class Xcb {
 public:
  explicit Xcb(X11& x11) : connection(x11.connection()) {}

  /// Sets a text property of the window; has no effect without the library.
  void setProperty(WId window, std::string_view name, std::string_view text) {
    const auto change = reinterpret_cast<ChangeProperty>(library.resolve("xcb_change_property"));
    const auto property = atom(name), type = atom("UTF8_STRING");
    if (change == nullptr || property == 0 || type == 0) return;
    change(connection, 0, static_cast<std::uint32_t>(window), property, type, 8,
           static_cast<std::uint32_t>(text.size()), text.data());
  }

 private:
  /// 0 when there is none.
  std::uint32_t atom(std::string_view name) {
    const auto intern = reinterpret_cast<InternAtom>(library.resolve("xcb_intern_atom"));
    const auto answer = reinterpret_cast<InternAtomReply>(library.resolve("xcb_intern_atom_reply"));
    if (intern == nullptr || answer == nullptr) return 0;
    const auto cookie = intern(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    AtomReply* const reply = answer(connection, cookie, nullptr);
    const std::uint32_t found = reply == nullptr ? 0 : reply->atom;
    std::free(reply);
    return found;
  }

  QLibrary library{"xcb", 1};
  xcb_connection_t* connection;
};

}  // namespace

void askForDarkFrame(QWindow& window) {
  // Qt's own frames on Wayland take their colours from these.
  QPalette dark(TunerTheme::bg);
  dark.setColor(QPalette::WindowText, Qt::white);
  QGuiApplication::setPalette(dark);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QGuiApplication::styleHints()->setColorScheme(Qt::ColorScheme::Dark);
#endif
  // Window managers that follow GTK.
  if (auto* x11 = qGuiApp->nativeInterface<X11>()) {
    Xcb(*x11).setProperty(window.winId(), "_GTK_THEME_VARIANT", "dark");
  }
}

}  // namespace corvane
