#include <gtest/gtest.h>

#include <objbase.h>

namespace {

/// The tests run in one single-threaded apartment, as a host does.
class ComEnvironment final : public testing::Environment {
  public:
    void SetUp() override { ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override { CoUninitialize(); }
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new ComEnvironment);

} // namespace
