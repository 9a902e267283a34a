// The pass-button rule as the dialogs read it from the host's parameters.
#include <gtest/gtest.h>

#include <optional>

#include "PassButtonPolicy.h"
#include "Registration.h"

namespace {

using kstrmouse::params::bDisablePassUntilFinished;
using kstrmouse::params::bDisablePassUntilStarted;

void give(harn5::Parameter* parameter, std::optional<const char*> value)
{
    if (value) {
        parameter->assign(harn5::Value(ksx::String(*value)));
    } else {
        parameter->reset();
    }
}

struct PolicyCase {
    std::optional<const char*> untilFinished;
    std::optional<const char*> untilStarted;
    PassButtonPolicy expected;
};

class PassButtonPolicyTest : public testing::TestWithParam<PolicyCase> {
protected:
    void TearDown() override
    {
        bDisablePassUntilFinished->reset();
        bDisablePassUntilStarted->reset();
    }
};

TEST_P(PassButtonPolicyTest, FollowsTheParameters)
{
    give(bDisablePassUntilFinished, GetParam().untilFinished);
    give(bDisablePassUntilStarted, GetParam().untilStarted);
    EXPECT_EQ(getPassButtonPolicy(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, PassButtonPolicyTest,
    testing::Values(PolicyCase{std::nullopt, std::nullopt, Enabled},
                    PolicyCase{"false", "false", Enabled},
                    PolicyCase{std::nullopt, "true", DisabledUntilStarted},
                    PolicyCase{"no", "YES", DisabledUntilStarted},
                    PolicyCase{"true", std::nullopt, DisabledUntilFinished},
                    PolicyCase{"true", "true", DisabledUntilFinished},
                    PolicyCase{"1", "0", DisabledUntilFinished}));

TEST(PassButtonPolicy, IsReadAfreshAtEveryDecision)
{
    bDisablePassUntilStarted->assign(harn5::Value(ksx::String("true")));
    EXPECT_EQ(getPassButtonPolicy(), DisabledUntilStarted);
    bDisablePassUntilStarted->assign(harn5::Value(ksx::String("false")));
    EXPECT_EQ(getPassButtonPolicy(), Enabled);
    bDisablePassUntilStarted->reset();
}

}  // namespace
