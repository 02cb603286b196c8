#include "base/WindowPlace.h"

#include <gtest/gtest.h>

using namespace vorlina;

TEST(WindowPlace, AWindowThatCannotBeTakenHoldOfComesBack) {
  const QRect left(0, 0, 1000, 800);
  const QRect right(1000, 100, 1000, 800);
  using Case = std::tuple<const char*, QList<QRect>, QPoint, QPoint>;
  for (const auto& [what, screens, corner, expected] :
       {Case{"on a screen", {left, right}, {700, 300}, {700, 300}},
        Case{"a sliver is left", {left}, {-250, 10}, {0, 10}},
        Case{"a title above the edge", {left}, {100, -20}, {100, 0}},
        Case{"the second screen is gone", {left}, {1500, 700}, {700, 500}},
        Case{"between two screens", {left, right}, {1000, 20}, {700, 20}},
        Case{"larger than the screen", {QRect(10, 20, 200, 100)}, {900, 900}, {10, 20}},
        Case{"no screen", {}, {-5000, -5000}, {-5000, -5000}}})
    EXPECT_EQ(VisibleCorner(corner, {300, 300}, screens), expected) << what;
  EXPECT_EQ(WholeCorner({900, 600}, {300, 300}, {left}), QPoint(700, 500));
  EXPECT_EQ(WholeCorner({1050, 600}, {300, 300}, {left, right}), QPoint(1050, 600));
  EXPECT_EQ(WholeCorner({50, 60}, {300, 801}, {left}), QPoint(50, 60));
}
