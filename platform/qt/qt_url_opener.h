#pragma once

#include "platform/url_opener.h"

namespace corvane {

/// Opens web pages and files in the program that the desktop has for them, and for an address of
/// another system's settings this desktop's settings of sound, or a mixer. Declines every other
/// scheme: handing one that nothing is registered for to the desktop starts a program only to show
/// an error that the user can do nothing about.
class QtUrlOpener final : public UrlOpener {
 public:
  bool openURL(std::string_view address) override;
};

}  // namespace corvane
