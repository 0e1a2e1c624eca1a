// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/leveling.h"

namespace morva::Leveling {

Point level(Point point, Point center, double rollDegrees) {
    return rollDegrees == 0 ? point : point.rotated(center, -rollDegrees);
}

Point unlevel(Point point, Point center, double rollDegrees) {
    return rollDegrees == 0 ? point : point.rotated(center, rollDegrees);
}

}  // namespace morva::Leveling
