#include "fichas/FieldLayout.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace fichas;
using platform::RECT;

namespace {

constexpr int lineHeight = 13;
constexpr int noteWidth = 400;

FieldLayout layoutOf(std::size_t fields, int captionWidth = 70) {
    std::vector<FieldMeasure> measures(fields, FieldMeasure{captionWidth, ColumnType::Text});
    for (std::size_t i = 0; i < fields; i += 3)
        measures[i].type = ColumnType::Integer;
    return layOutFields(measures, lineHeight, noteWidth);
}

bool overlap(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(FieldLayout, ATextOfSeveralLinesTakesAsManyRows) {
    std::vector<FieldMeasure> measures(4, FieldMeasure{70, ColumnType::Text});
    measures[1].lines = 3;
    const FieldLayout layout = layOutFields(measures, lineHeight, noteWidth);
    const auto& places = layout.fields;
    const int pitch = places[1].value.top - places[0].value.top;
    EXPECT_EQ(places[2].value.top - places[1].value.top, 3 * pitch);
    EXPECT_EQ(places[1].value.bottom - places[0].value.bottom, 3 * pitch);
    EXPECT_GE(places[1].value.bottom - places[1].value.top, 3 * lineHeight);
    EXPECT_EQ(places[1].caption.bottom - places[1].caption.top, lineHeight) << "its name stands above";
    EXPECT_LT(places[3].value.bottom, layout.note.top);
}

TEST(FieldLayout, TallFieldsStandWholeAndAlone) {
    for (const std::size_t fields : {5u, 17u, 30u, 60u}) {
        std::vector<FieldMeasure> measures(fields, FieldMeasure{70, ColumnType::Text});
        for (std::size_t i = 0; i < fields; i += 2)
            measures[i].lines = mostLines;
        const FieldLayout layout = layOutFields(measures, lineHeight, noteWidth);
        for (std::size_t i = 0; i < fields; ++i) {
            EXPECT_LE(layout.fields[i].value.bottom, layout.note.top) << i;
            EXPECT_LE(layout.fields[i].value.right, layout.client.cx) << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(layout.fields[i].page == layout.fields[j].page &&
                             overlap(layout.fields[i].value, layout.fields[j].value));
        }
    }
}

class FieldLayoutOf : public testing::TestWithParam<std::size_t> {};

TEST_P(FieldLayoutOf, EveryFieldStandsOnAPageInsideTheWindowAndAlone) {
    const FieldLayout layout = layoutOf(GetParam());
    ASSERT_EQ(layout.fields.size(), GetParam());
    std::vector<std::pair<int, RECT>> taken;
    for (const FieldPlace& field : layout.fields) {
        EXPECT_GE(field.page, 0);
        EXPECT_LT(field.page, layout.pages);
        for (const RECT& area : {field.caption, field.value}) {
            EXPECT_GE(area.left, 0);
            EXPECT_GE(area.top, 0);
            EXPECT_LT(area.left, area.right);
            EXPECT_LE(area.right, layout.client.cx);
            EXPECT_LE(area.bottom, layout.note.top);
            for (const auto& [page, other] : taken)
                EXPECT_FALSE(page == field.page && overlap(area, other));
            taken.emplace_back(field.page, area);
        }
    }
    EXPECT_LE(layout.note.bottom, layout.client.cy);
    EXPECT_GE(layout.note.right - layout.note.left, noteWidth);
    EXPECT_LE(layout.note.right, layout.client.cx);
}

TEST_P(FieldLayoutOf, NamesEndAndValuesBeginAtCommonEdges) {
    const FieldLayout layout = layoutOf(GetParam());
    std::vector<int> nameEdges;
    for (const FieldPlace& field : layout.fields) {
        EXPECT_EQ(field.value.left - field.caption.right,
                  layout.fields[0].value.left - layout.fields[0].caption.right);
        EXPECT_EQ(field.caption.top - field.value.top, 3) << "name and text share a line";
        nameEdges.push_back(field.caption.right);
    }
    std::sort(nameEdges.begin(), nameEdges.end());
    nameEdges.erase(std::unique(nameEdges.begin(), nameEdges.end()), nameEdges.end());
    EXPECT_LE(nameEdges.size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldLayoutOf, testing::Values(1, 2, 16, 17, 36, 37, 100));

TEST(FieldLayout, FewFieldsStandInOneColumnManyInTwoMoreOnPages) {
    EXPECT_EQ(layoutOf(16).pages, 1);
    EXPECT_EQ(layoutOf(16).fields[15].caption.right, layoutOf(16).fields[0].caption.right);
    EXPECT_EQ(layoutOf(36).pages, 1);
    EXPECT_EQ(layoutOf(37).pages, 2);
    EXPECT_EQ(layoutOf(100).pages, 3);
}

TEST(FieldLayout, TheWindowFitsASmallScreen) {
    const FieldLayout layout = layoutOf(100, 500);
    EXPECT_LE(layout.client.cx, 1200);
    EXPECT_LE(layout.client.cy, 700);
}

} // namespace
