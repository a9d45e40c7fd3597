#include <gtest/gtest.h>

#include "testing/component_host.h"
#include "vbscript/engine.h"

namespace quorvane {

namespace {

std::int32_t errorOf(std::string_view script, const vbs::Limits& limits) {
  ComponentHost host;
  vbs::ProgramCache cache;
  vbs::Engine engine(host, cache, limits);
  const auto error = engine.run(script);
  return error ? error->number : 0;
}

constexpr std::string_view kLarge =
    "Set j = CreateObject(\"Persits.Jpeg\")\n"
    "j.New 1000, 1000, 0\n";

TEST(PictureLimits, PixelsCountTowardTheMemory) {
  vbs::Limits limits;
  EXPECT_EQ(errorOf(kLarge, limits), 0);
  limits.memoryBytes = 2'000'000;
  EXPECT_EQ(errorOf(kLarge, limits), 7);
  EXPECT_EQ(errorOf("Set j = CreateObject(\"Persits.Jpeg\")\n"
                    "j.New 10, 10, 0\n"
                    "j.Width = 1000: j.Height = 1000: j.Crop 0, 0, 5, 5\n",
                    limits),
            7);
}

TEST(PictureLimits, WhatIsClosedIsGivenBack) {
  vbs::Limits limits;
  limits.memoryBytes = 4'000'000;
  EXPECT_EQ(
      errorOf(std::string(kLarge) + "For i = 1 To 20: j.Close: j.New 1000, 1000: Next\n"
                                    "Set j = Nothing\nSet k = CreateObject(\"Persits.Jpeg\")\n"
                                    "k.New 1000, 1000\n",
              limits),
      0);
}

TEST(PictureLimits, DrawingEndsWithTheScriptsTime) {
  vbs::Limits limits;
  limits.time = std::chrono::milliseconds(100);
  constexpr std::int32_t kOutOfTime = 113;
  EXPECT_EQ(errorOf(std::string(kLarge) + "Do: j.Canvas.Bar 0, 0, 1000, 1000: Loop\n", limits),
            kOutOfTime);
}

}  // namespace

}  // namespace quorvane
