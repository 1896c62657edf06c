#include "drawing/canvas_records.h"

namespace tesela {

using automation::RecordTable;

const RecordTable& recordOf(const RECT_Type*) {
    static const RecordTable table = RecordTable::of<RECT_Type>("RECT_Type")
                                         .field("left", &RECT_Type::left)
                                         .field("top", &RECT_Type::top)
                                         .field("right", &RECT_Type::right)
                                         .field("bottom", &RECT_Type::bottom);
    return table;
}

const RecordTable& recordOf(const TextMetricA_Type*) {
    static const RecordTable table = RecordTable::of<TextMetricA_Type>("TextMetricA_Type")
                                         .field("tmHeight", &TextMetricA_Type::tmHeight)
                                         .field("tmAscent", &TextMetricA_Type::tmAscent)
                                         .field("tmDescent", &TextMetricA_Type::tmDescent)
                                         .field("tmInternalLeading", &TextMetricA_Type::tmInternalLeading)
                                         .field("tmExternalLeading", &TextMetricA_Type::tmExternalLeading)
                                         .field("tmAveCharWidth", &TextMetricA_Type::tmAveCharWidth)
                                         .field("tmMaxCharWidth", &TextMetricA_Type::tmMaxCharWidth)
                                         .field("tmWeight", &TextMetricA_Type::tmWeight)
                                         .field("tmOverhang", &TextMetricA_Type::tmOverhang)
                                         .field("tmDigitizedAspectX", &TextMetricA_Type::tmDigitizedAspectX)
                                         .field("tmDigitizedAspectY", &TextMetricA_Type::tmDigitizedAspectY)
                                         .field("tmFirstChar", &TextMetricA_Type::tmFirstChar)
                                         .field("tmLastChar", &TextMetricA_Type::tmLastChar)
                                         .field("tmDefaultChar", &TextMetricA_Type::tmDefaultChar)
                                         .field("tmBreakChar", &TextMetricA_Type::tmBreakChar)
                                         .field("tmItalic", &TextMetricA_Type::tmItalic)
                                         .field("tmUnderlined", &TextMetricA_Type::tmUnderlined)
                                         .field("tmStruckOut", &TextMetricA_Type::tmStruckOut)
                                         .field("tmPitchAndFamily", &TextMetricA_Type::tmPitchAndFamily)
                                         .field("tmCharSet", &TextMetricA_Type::tmCharSet);
    return table;
}

const RecordTable& recordOf(const TriVertex_TYPE*) {
    static const RecordTable table = RecordTable::of<TriVertex_TYPE>("TriVertex_TYPE")
                                         .field("X", &TriVertex_TYPE::X)
                                         .field("Y", &TriVertex_TYPE::Y)
                                         .field("Red", &TriVertex_TYPE::Red)
                                         .field("Green", &TriVertex_TYPE::Green)
                                         .field("Blue", &TriVertex_TYPE::Blue)
                                         .field("Alpha", &TriVertex_TYPE::Alpha);
    return table;
}

const RecordTable& recordOf(const GradientRect_TYPE*) {
    static const RecordTable table = RecordTable::of<GradientRect_TYPE>("GradientRect_TYPE")
                                         .field("nTopLeft_Index", &GradientRect_TYPE::nTopLeft_Index)
                                         .field("nBottomRight_Index", &GradientRect_TYPE::nBottomRight_Index);
    return table;
}

const RecordTable& recordOf(const BlendFunction_TYPE*) {
    static const RecordTable table = RecordTable::of<BlendFunction_TYPE>("BlendFunction_TYPE")
                                         .field("nBlendOp", &BlendFunction_TYPE::nBlendOp)
                                         .field("nFlags", &BlendFunction_TYPE::nFlags)
                                         .field("nSrcConstantAlpha", &BlendFunction_TYPE::nSrcConstantAlpha)
                                         .field("nAlphaFormat", &BlendFunction_TYPE::nAlphaFormat);
    return table;
}

} // namespace tesela
