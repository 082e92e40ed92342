#pragma once

#include <cstdint>
#include <type_traits>

#include "engine/noise_by_colors.h"

namespace tarnwell {

// The look-up written once for any counts; compilers turn its loops over lanes into the vectors of
// the function it is inlined into.
//
// Differences (green, red), (green, -red), (-green, red) and (-green, -red) are at the same e, so
// their runs are first added and subtracted, and only the results multiplied.
template <typename Count>
[[gnu::always_inline]] inline void LookUpColors(const Count* first_run, const NearColors& near,
                                                const ColorCells& cells, std::int32_t sums[6]) {
  // As wide as the counts, which never use the top bit, so that signed products are short.
  using Lane = std::make_signed_t<Count>;
  constexpr int kLanes = 16;
  std::int32_t total[6] = {0, 0, 0, 0, 0, 0};
  const auto add = [&](const Lane* values, const std::int16_t* factors, int lanes, int channel) {
    std::int32_t plain = 0, weighted = 0;
    for (int i = 0; i < kLanes; ++i) {
      plain += values[i] * factors[i];
      weighted += values[i] * factors[lanes + i];
    }
    total[channel] += plain;
    total[3 + channel] += weighted;
  };

  for (int lane = 0; lane < near.lanes(); lane += kLanes) {
    const Count* run = first_run + lane;
    for (int e = 0; e < near.limit(); ++e) {
      Lane all[kLanes];
      const Count* green1 = run + e * cells.green_step;
      const Count* green2 = run - e * cells.green_step;
      const Count* red1 = run + e * cells.red_step;
      const Count* red2 = run - e * cells.red_step;
      if (e == 0) {
        for (int i = 0; i < kLanes; ++i) all[i] = static_cast<Lane>(run[i]);
      } else {
        Lane green[kLanes], red[kLanes];
        for (int i = 0; i < kLanes; ++i) {
          all[i] = static_cast<Lane>(green1[i] + green2[i] + red1[i] + red2[i]);
          green[i] = static_cast<Lane>(green1[i] - green2[i]);
          red[i] = static_cast<Lane>(red1[i] - red2[i]);
        }
        add(green, near.factors(e, e) + lane, near.lanes(), kGreen);
        add(red, near.factors(e, e) + lane, near.lanes(), kRed);
      }
      for (int r = 1; r < e; ++r) {
        const int g = e - r;
        const Count* pp = run + r * cells.red_step + g * cells.green_step;
        const Count* pm = run + r * cells.red_step - g * cells.green_step;
        const Count* mp = run - r * cells.red_step + g * cells.green_step;
        const Count* mm = run - r * cells.red_step - g * cells.green_step;
        Lane green[kLanes], red[kLanes];
        for (int i = 0; i < kLanes; ++i) {
          all[i] = static_cast<Lane>(all[i] + pp[i] + pm[i] + mp[i] + mm[i]);
          green[i] = static_cast<Lane>((pp[i] - pm[i]) + (mp[i] - mm[i]));
          red[i] = static_cast<Lane>((pp[i] + pm[i]) - (mp[i] + mm[i]));
        }
        add(green, near.factors(e, g) + lane, near.lanes(), kGreen);
        add(red, near.factors(e, r) + lane, near.lanes(), kRed);
      }
      add(all, near.factors(e, 0) + lane, near.lanes(), kBlue);
    }
  }
  for (int i = 0; i < 6; ++i) sums[i] = total[i];
}

}  // namespace tarnwell
