// SPDX-License-Identifier: MIT
#include "ui/app/dark_frame.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QPalette>
#include <QStyleHints>
#include <cstdlib>
#include <string_view>

#include "ui/paint/tuner_theme.h"

namespace corvane {
namespace {

using X11 = QNativeInterface::QX11Application;

/// XCB_ATOM_NONE if the display does not answer.
xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
  const auto cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  xcb_intern_atom_reply_t* const reply = xcb_intern_atom_reply(connection, cookie, nullptr);
  const xcb_atom_t found = reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
  std::free(reply);
  return found;
}

/// For window managers that follow GTK.
void setVariantOfGtk(xcb_connection_t* connection, WId window, std::string_view variant) {
  const xcb_atom_t property = atom(connection, "_GTK_THEME_VARIANT");
  const xcb_atom_t text = atom(connection, "UTF8_STRING");
  if (property == XCB_ATOM_NONE || text == XCB_ATOM_NONE) return;
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window),
                      property, text, 8, static_cast<std::uint32_t>(variant.size()),
                      variant.data());
}

}  // namespace

void askForDarkFrame(QWindow& window) {
  // Qt's own frames on Wayland use these colours.
  QPalette dark(TunerTheme::bg);
  dark.setColor(QPalette::WindowText, Qt::white);
  QGuiApplication::setPalette(dark);
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QGuiApplication::styleHints()->setColorScheme(Qt::ColorScheme::Dark);
#endif
  if (auto* x11 = qGuiApp->nativeInterface<X11>()) {
    setVariantOfGtk(x11->connection(), window.winId(), "dark");
  }
}

}  // namespace corvane
