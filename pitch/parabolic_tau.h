#pragma once

#include <cstddef>
#include <span>

namespace corvane {

/// The abscissa of the vertex of the parabola through cmnd[tau - 1], cmnd[tau] and cmnd[tau + 1].
/// `tau` itself where it has no neighbour on one side or the three points lie on a straight line.
/// A step of the detector, apart so that it can be tested alone.
double parabolicTau(std::span<const double> cmnd, std::size_t tau);

}  // namespace corvane
