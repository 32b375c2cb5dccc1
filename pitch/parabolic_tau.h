// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

namespace corvane {

/// The abscissa of the vertex of the parabola through cmnd[tau - 1], cmnd[tau] and cmnd[tau + 1].
/// Returns `tau` if it lacks a neighbour or the three points lie on a straight line. A step of the
/// detector, separate for its tests.
double parabolicTau(std::span<const double> cmnd, std::size_t tau);

}  // namespace corvane
