// SPDX-License-Identifier: MIT
#pragma once

#include <iostream>
#include <string_view>

namespace corvane {

/// Prints a measured value for docs/reliability.md. `what` is its name and unit.
template <class Value>
void figure(std::string_view what, const Value& value) {
  std::cout << "figure: " << what << " = " << value << std::endl;
}

}  // namespace corvane
