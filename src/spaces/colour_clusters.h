#pragma once

#include "spaces/picture_histogram.h"

#include <cstddef>
#include <functional>
#include <optional>

namespace chromalog {

/// The centre of a cluster of colours and the weight of them all.
using ColourCluster = WeightedColour;

/// At most `count` clusters: cut at the median along the axis in which a box varies most, always the box with
/// the largest sum of squared distances (after Heckbert 1982), then moved by k-means in OKLab (Lloyd 1982)
/// until nothing changes, at most 24 times. No randomness: the same colours give the same clusters. Fewer
/// where there are fewer colours. `goOn` is asked between rounds; nothing where it says no.
std::optional<std::vector<ColourCluster>> clustersOf(std::vector<WeightedColour> colours, std::size_t count,
                                                     const std::function<bool()>& goOn);

} // namespace chromalog
