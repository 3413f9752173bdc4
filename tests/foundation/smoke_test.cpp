#include <gtest/gtest.h>
#include "cow_String.h"
TEST(Smoke, StringBuilds) { EXPECT_EQ(cow_String("a").Length(), 1); }
