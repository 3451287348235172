#include "RowCascade.h"

#include "Checked.h"

namespace {

// The excess of the catalogue condition: 80 °C mean water against 20 °C room.
constexpr double kCatalogueExcess = 60;

}  // namespace

RowTemperatures CascadeRow(float in, float load, float room, std::optional<float> flow,
                           float outWithoutFlow) {
  RowTemperatures t;
  t.Out = flow ? CSng(in - Divide(load, *flow)) : outWithoutFlow;
  t.Mean = CSng((static_cast<double>(t.Out) + in) / 2);
  t.Factor = CSng(Divide(kCatalogueExcess, t.Mean - static_cast<double>(room)));
  t.Equivalent = CSng(static_cast<double>(load) * t.Factor);
  return t;
}
