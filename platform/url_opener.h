// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace corvane {

class UrlOpener {
 public:
  virtual ~UrlOpener() = default;

  /// Opens `address` in the program that the desktop has for it. Main thread. False when the
  /// address does not parse or nothing on this desktop opens it.
  virtual bool openURL(std::string_view address) = 0;
};

}  // namespace corvane
