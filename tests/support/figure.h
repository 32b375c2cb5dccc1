#pragma once

#include <iostream>
#include <string_view>

namespace corvane {

/// Prints what a test has measured, for the table of what is known about the program's reliability.
/// `what` names it and its unit.
template <class Value>
void figure(std::string_view what, const Value& value) {
  std::cout << "figure: " << what << " = " << value << std::endl;
}

}  // namespace corvane
