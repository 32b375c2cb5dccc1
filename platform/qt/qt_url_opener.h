// SPDX-License-Identifier: MIT
#pragma once

#include "platform/url_opener.h"

namespace corvane {

/// Opens web pages and files in the desktop's default program. For the address of another system's
/// settings it opens this desktop's sound settings, or a mixer. Declines every other scheme: for
/// one without a handler the desktop would only show an error.
class QtUrlOpener final : public UrlOpener {
 public:
  bool openURL(std::string_view address) override;
};

}  // namespace corvane
