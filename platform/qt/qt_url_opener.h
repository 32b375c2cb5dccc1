#pragma once

#include "platform/url_opener.h"

namespace corvane {

/// Opens web pages and files in the program that the desktop has for them. Declines every other
/// scheme: handing one that nothing is registered for to the desktop starts a program only to show
/// an error that the user can do nothing about.
class QtUrlOpener final : public UrlOpener {
 public:
  bool openURL(std::string_view address) override;
};

}  // namespace corvane
