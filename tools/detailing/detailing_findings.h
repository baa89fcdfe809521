// What the rules of detailing find, each kind under a number of its own that never changes.
#pragma once

#include <tools/check/finding.h>

namespace quorvan::tool::findings {

inline constexpr FindingKind kLinkEnd{801, Severity::kWarning,
                                      "end of a link that is too short behind its bend",
                                      "make the hook longer"};
inline constexpr FindingKind kEndProjection{802, Severity::kWarning,
                                            "end projection that is too short",
                                            "make the leg or hook at the end longer"};
inline constexpr FindingKind kLegBetweenBends{
    803, Severity::kWarning, "leg that is too short between its bends", "make the leg longer"};
inline constexpr FindingKind kStockLength{804, Severity::kWarning,
                                          "piece that is longer than the stock",
                                          "divide it with a lap, or say the stock with --stock"};
inline constexpr FindingKind kRoller{805, Severity::kWarning, "roller that is too small",
                                     "bend over a larger roller"};
inline constexpr FindingKind kClearSpacing{
    806, Severity::kWarning, "bars that are too close to each other", "set the bars farther apart"};
inline constexpr FindingKind kCover{807, Severity::kWarning, "cover that is too small",
                                    "move the bar into the concrete"};
inline constexpr FindingKind kOutside{808, Severity::kWarning,
                                      "bar outside every outline of the formwork",
                                      "move the bar into the concrete"};
inline constexpr FindingKind kFlatArc{809, Severity::kWarning,
                                      "arc that is too flat to be bent before delivery",
                                      "order the bar straight"};
inline constexpr FindingKind kSmoothEnd{810, Severity::kWarning, "smooth bar without a hook",
                                        "end the bar in a hook"};

/// All of them, by number.
inline constexpr const FindingKind* kDetailing[] = {
    &kLinkEnd,      &kEndProjection, &kLegBetweenBends, &kStockLength, &kRoller,
    &kClearSpacing, &kCover,         &kOutside,         &kFlatArc,     &kSmoothEnd};

}  // namespace quorvan::tool::findings
