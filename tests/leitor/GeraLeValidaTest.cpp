#include <gtest/gtest.h>
TEST(GeraLeValida, Vazio) {}
