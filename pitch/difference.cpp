#include "pitch/difference.h"

#include "base/require.h"

namespace corvane {

void differenceFunction(std::span<const float> x, std::size_t window, std::span<double> d) {
  require(!d.empty() && window + d.size() - 1 <= x.size(), "every lag stays inside the block");
  d[0] = 0.0;
  for (std::size_t tau = 1; tau < d.size(); ++tau) {
    double sum = 0.0;
    for (std::size_t i = 0; i < window; ++i) {
      const double difference = static_cast<double>(x[i]) - static_cast<double>(x[i + tau]);
      sum += difference * difference;
    }
    d[tau] = sum;
  }
}

}  // namespace corvane
