// The table of the differences that drawing scripts may have, and what counts as one.

#include "conformance/linux/AcceptedTable.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

using namespace conformance;

namespace {

AcceptedTable tableOf(const std::string& text) {
    std::istringstream in(text);
    return AcceptedTable(in);
}

Difference pixels(std::size_t count) {
    return {count, 255, false};
}

Difference pixelsAndShown(std::size_t count) {
    return {count, 255, true};
}

Picture row(std::vector<std::uint32_t> colors) {
    const int width = static_cast<int>(colors.size());
    return {"main", width, 1, std::move(colors)};
}

} // namespace

TEST(AcceptedTable, LetsAsManyPixelsOfAScriptDifferAsItsNameTells) {
    AcceptedTable table = tableOf("random/fills/7:40,12:3\tpixels\tA reason.\n");
    EXPECT_TRUE(table.accepts("random/fills/7", pixels(40)));
    EXPECT_FALSE(table.accepts("random/fills/7", pixels(41)));
    EXPECT_TRUE(table.accepts("random/fills/12", pixels(3)));
    EXPECT_FALSE(table.accepts("random/fills/12", pixels(4)));
    EXPECT_FALSE(table.accepts("random/fills/8", pixels(1)));
    EXPECT_EQ(table.pixelsOf("random/fills/12"), 3u);
}

TEST(AcceptedTable, LetsWhatIsShownDifferInRowsAloneThatSaySo) {
    AcceptedTable table = tableOf("Arc/a:2\tpixels\tA reason.\nArc/b:2\tpixels, shown\tA reason.\n");
    EXPECT_FALSE(table.accepts("Arc/a", pixelsAndShown(2)));
    EXPECT_TRUE(table.accepts("Arc/b", pixelsAndShown(2)));
    EXPECT_TRUE(table.accepts("Arc/b", pixels(1)));
    EXPECT_FALSE(table.accepts("Arc/b", pixelsAndShown(3)));
}

TEST(AcceptedTable, LetsAnyNumberOfPixelsDifferUnderANameWithoutOne) {
    AcceptedTable table = tableOf("Arc/a,b\tany\tA reason.\nArc/c\tpixels\tA reason.\n");
    EXPECT_TRUE(table.accepts("Arc/b", pixelsAndShown(100000)));
    EXPECT_TRUE(table.accepts("Arc/c", pixels(100000)));
    EXPECT_FALSE(table.accepts("Arc/c", pixelsAndShown(0)));
    EXPECT_FALSE(table.pixelsOf("Arc/b").has_value());
}

TEST(AcceptedTable, LetsComponentsDifferByTheNumberOfTheirRow) {
    AcceptedTable table = tableOf("random/smooth/*\t1\tA reason.\nArc/a:1\t5\tA reason.\n");
    EXPECT_TRUE(table.accepts("random/smooth/300", {5000, 1, false}));
    EXPECT_FALSE(table.accepts("random/smooth/300", {1, 2, false}));
    EXPECT_FALSE(table.accepts("random/smooth/300", {0, 0, true}));
    EXPECT_TRUE(table.accepts("Arc/a", {1, 5, false}));
    EXPECT_FALSE(table.accepts("Arc/a", {2, 5, false}));
}

TEST(AcceptedTable, TellsNamesUnderWhichNothingDiffers) {
    AcceptedTable table = tableOf("# A remark\n\n"
                                  "random/fills/7:1,12:1\tpixels\tA reason.\n"
                                  "random/smooth/*\t1\tA reason.\n"
                                  "random/arcs/3:1\tsometimes\tA reason.\n");
    EXPECT_TRUE(table.accepts("random/fills/12", pixels(1)));
    EXPECT_FALSE(table.accepts("random/arcs/3", pixels(2)));
    EXPECT_EQ(table.unused(), (std::vector<std::string>{"random/fills/7", "random/smooth/*"}));
    EXPECT_TRUE(table.accepts("random/arcs/3", pixelsAndShown(1)));
}

TEST(AcceptedTable, RefusesARowThatItDoesNotUnderstand) {
    EXPECT_THROW(tableOf("Arc/a\tany\n"), std::runtime_error);
    EXPECT_THROW(tableOf("Arc/a\tany\t\n"), std::runtime_error);
    EXPECT_THROW(tableOf("Arc/a\tmany\tA reason.\n"), std::runtime_error);
    EXPECT_THROW(tableOf("Arc/a\t-1\tA reason.\n"), std::runtime_error);
    EXPECT_THROW(tableOf("Arc/a:\tpixels\tA reason.\n"), std::runtime_error);
    EXPECT_THROW(tableOf("Arc/a:few\tpixels\tA reason.\n"), std::runtime_error);
}

TEST(Difference, CountsThePixelsOfAllPicturesAndTheirLargestComponent) {
    const Result ours{"Arc/a", "x", {row({0x102030, 0xFF, 0}), row({1})}};
    const Result theirs{"Arc/a", "x", {row({0x102430, 0xFF, 0}), row({3})}};
    const Difference found = difference(ours, theirs);
    EXPECT_EQ(found.pixels, 2u);
    EXPECT_EQ(found.component, 4);
    EXPECT_FALSE(found.isInWhatIsShown);
    EXPECT_TRUE(difference(ours, {"Arc/a", "y", ours.pictures}).isInWhatIsShown);
    EXPECT_EQ(difference(ours, ours).pixels, 0u);
}

TEST(Difference, CountsAllPixelsOfAPictureThatIsMissingOrOfAnotherSize) {
    const Result ours{"Arc/a", "", {row({0, 0, 0})}};
    const Difference another = difference(ours, {"Arc/a", "", {row({0, 0})}});
    EXPECT_EQ(another.pixels, 3u);
    EXPECT_EQ(another.component, 255);
    const Difference missing = difference({"Arc/a", "", {}}, ours);
    EXPECT_EQ(missing.pixels, 3u);
    EXPECT_EQ(missing.component, 255);
}
