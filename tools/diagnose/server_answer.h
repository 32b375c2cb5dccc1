// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace corvane::diagnose {

/// The audio server and its default input, in words.
struct ServerAnswer {
  std::string server;
  std::string input = "none";
};

/// Uses its own connection. Takes at most five seconds.
ServerAnswer askServer();

}  // namespace corvane::diagnose
