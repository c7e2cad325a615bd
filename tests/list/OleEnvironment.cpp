#include <gtest/gtest.h>

#include <ole2.h>

namespace {

/// The tests run in one single-threaded apartment, as a host does.
class OleEnvironment final : public testing::Environment {
  public:
    void SetUp() override { ASSERT_EQ(OleInitialize(nullptr), S_OK); }
    void TearDown() override { OleUninitialize(); }
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new OleEnvironment);

} // namespace
