#pragma once
// The temperature cascade along a one-pipe loop, one radiator (one row of the sheet) at a time:
// the water of the loop enters a radiator, gives up its load and enters the next radiator at
// the temperature it left this one. Each load is then corrected to the catalogue condition,
// 80 °C mean water against 20 °C room, for the sizing.
#include <optional>

// What the water does in one row.
struct RowTemperatures {
  float Out = 0;         // °C, water leaving the radiator: the next row's inlet
  float Mean = 0;        // °C, the mean of inlet and outlet
  float Factor = 0;      // the correction of the load to the catalogue condition
  float Equivalent = 0;  // Kcal/h, the load at the catalogue condition
};

// The row whose water enters at `in` °C and gives `load` Kcal/h to a room held at `room` °C,
// the loop carrying `flow` l/h. Water gives 1 Kcal per litre and °C, so it leaves at
// in - load / flow. A sheet saved before its first calculation has no flow (nullopt): its water
// leaves at `outWithoutFlow`, the outlet of the row before. The factor is the catalogue's
// 60 °C over the row's mean - room. Every step is worked in double and kept in single
// precision. Throws RuntimeFault: a flow of 0, a mean equal to the room temperature.
RowTemperatures CascadeRow(float in, float load, float room, std::optional<float> flow,
                           float outWithoutFlow = 0);
