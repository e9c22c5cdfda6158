#include "base/Failure.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace pellam {
namespace {

using Kind = Failure::Kind;

TEST(FailureTest, TextNamesFileTroublePlaceAndAdvice) {
    EXPECT_EQ(Failure().text(), "");
    EXPECT_EQ((Failure{Kind::Read, "a.dlr", -1, ""}.text()), "a.dlr can not be read.");
    EXPECT_EQ((Failure{Kind::Format, "a.dlr", 17, "the header is short."}.text()),
              "a.dlr is not in the expected form (at byte 17): the header is short.");
    EXPECT_EQ((Failure{Kind::Open, "", -1, "why"}.text()), "The file can not be opened: why.");
}

TEST(FailureTest, ErrorNumberDecidesTheKindWhereItSaysMore) {
    EXPECT_EQ(Failure::fromErrno(Kind::Write, "a", ENOSPC).kind, Kind::Full);
    EXPECT_EQ(Failure::fromErrno(Kind::Open, "a", EISDIR).kind, Kind::NotAFile);
    EXPECT_EQ(Failure::fromErrno(Kind::Open, "a", EACCES).kind, Kind::Open);
}

} // namespace
} // namespace pellam
