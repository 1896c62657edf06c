// Calls by name, as programs of any automation language make them.

#include "activex/windows/ControlLibrary.h"
#include "activex/windows/ProgramObject.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using activex::ComPointer;
using support::Answer;
using support::SystemValue;

TEST(Calls, FindMembersAndParametersWhateverTheCaseOfTheirLetters) {
    const auto fecha = support::create(u"cFecha");
    ASSERT_TRUE(fecha);
    std::array<wchar_t*, 3> names{const_cast<wchar_t*>(L"MK_DATE"), const_cast<wchar_t*>(L"naño"),
                                  const_cast<wchar_t*>(L"nAno")};
    std::array<::DISPID, 3> ids{};
    EXPECT_EQ(fecha->GetIDsOfNames(IID_NULL, names.data(), 3, LOCALE_USER_DEFAULT, ids.data()), S_OK);
    EXPECT_EQ(ids[0], support::memberId(*fecha.get(), L"Mk_Date"));
    EXPECT_EQ(ids[1], 2);
    EXPECT_EQ(ids[2], 2);
    names[1] = const_cast<wchar_t*>(L"nNada");
    EXPECT_EQ(fecha->GetIDsOfNames(IID_NULL, names.data(), 2, LOCALE_USER_DEFAULT, ids.data()),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(Calls, ReadAndWriteProperties) {
    const auto fecha = support::create(u"cFecha");
    EXPECT_EQ(support::put(*fecha.get(), L"Value", support::date(45351)).result, S_OK);
    EXPECT_EQ(support::get(*fecha.get(), L"Texto").asString(), u"29/02/2024");
}

TEST(Calls, TakeArgumentsByTheirNamesInAnyOrder) {
    const auto fecha = support::create(u"cFecha");
    std::array<::VARIANT, 3> arguments{support::number(2024), support::number(5), support::number(9)};
    std::array<::DISPID, 3> places{2, 1, 0}; // year, month, day
    const Answer answer = support::call(*fecha.get(), support::memberId(*fecha.get(), L"Mk_Date"),
                                        DISPATCH_METHOD, {arguments.data(), places.data(), 3, 3});
    EXPECT_EQ(answer.result, S_OK);
    EXPECT_EQ(support::get(*fecha.get(), L"Texto").asString(), u"09/05/2024");
    places = {2, 1, 77};
    EXPECT_EQ(support::call(*fecha.get(), support::memberId(*fecha.get(), L"Mk_Date"), DISPATCH_METHOD,
                            {arguments.data(), places.data(), 3, 3})
                  .result,
              DISP_E_EXCEPTION);
}

TEST(Calls, LetArgumentsBeLeftOut) {
    const auto fecha = support::create(u"cFecha");
    support::put(*fecha.get(), L"Value", support::date(45351));
    EXPECT_EQ(support::call(*fecha.get(), L"DiasMes", {support::missing()}).value.type(),
              support::call(*fecha.get(), L"DiasMes").value.type());
    EXPECT_EQ(support::call(*fecha.get(), L"SetEspecial").error, 449);
}

TEST(Calls, GiveBackWhatAMemberWroteIntoItsArguments) {
    const auto label = support::create(u"lbl");
    support::put(*label.get(), L"Caption", support::text(L"12,5"));
    support::put(*label.get(), L"TipoDato", support::number(1));
    LONG whole = -1;
    ::VARIANT reference;
    ::VariantInit(&reference);
    reference.vt = VT_BYREF | VT_I4;
    reference.plVal = &whole;
    EXPECT_EQ(support::call(*label.get(), L"ValorVerdadero", {reference}).value.asDouble(), 12.5);
    EXPECT_EQ(whole, 1);
    SystemValue variable;
    variable.vt = VT_I2;
    variable.iVal = -1;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    EXPECT_EQ(support::call(*label.get(), L"ValorVerdadero", {reference}).value.asDouble(), 12.5);
    EXPECT_EQ(variable.vt, VT_I4);
    EXPECT_EQ(variable.lVal, 1);
    SHORT small = -1;
    reference.vt = VT_BYREF | VT_I2;
    reference.piVal = &small;
    EXPECT_EQ(support::call(*label.get(), L"ValorVerdadero", {reference}).value.asDouble(), 12.5);
    EXPECT_EQ(small, 1);
}

TEST(Calls, RaiseErrorsInTheLibrarysWords) {
    const auto fecha = support::create(u"cFecha");
    const Answer wrong = support::put(*fecha.get(), L"Value", support::text(L"mañana"));
    EXPECT_EQ(wrong.result, DISP_E_EXCEPTION);
    EXPECT_EQ(wrong.error, 13);
    EXPECT_EQ(wrong.words, u"El tipo no coincide");
    EXPECT_EQ(wrong.source, u"TeselaControls_basicos.cFecha");
    EXPECT_EQ(support::call(*fecha.get(), L"GetDateTime", {support::number(1), support::number(2)}).error,
              450);
    EXPECT_EQ(support::call(*fecha.get(), ::DISPID(4711), DISPATCH_METHOD, {}).error, 438);
    EXPECT_EQ(support::put(*fecha.get(), L"Texto", support::object(nullptr)).error, 91);
}

TEST(Calls, RefuseMissingPointersAndUnknownKindsWithoutHarm) {
    const auto fecha = support::create(u"cFecha");
    const ::DISPID id = support::memberId(*fecha.get(), L"Value");
    ::DISPPARAMS none{};
    ::DISPPARAMS claimed{nullptr, nullptr, 1, 0};
    ::DISPPARAMS named{nullptr, nullptr, 0, 1};
    const auto invoke = [&](WORD flags, ::DISPPARAMS* parameters) {
        return fecha->Invoke(id, IID_NULL, 0, flags, parameters, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(DISPATCH_PROPERTYGET, nullptr), E_INVALIDARG);
    EXPECT_EQ(invoke(DISPATCH_PROPERTYGET, &claimed), E_INVALIDARG);
    EXPECT_EQ(invoke(DISPATCH_PROPERTYGET, &named), E_INVALIDARG);
    EXPECT_EQ(invoke(0, &none), E_INVALIDARG);
    EXPECT_EQ(invoke(DISPATCH_PROPERTYGET, &none), S_OK) << "a result that nobody wants";
    EXPECT_EQ(invoke(DISPATCH_PROPERTYPUT, &none), DISP_E_EXCEPTION);
    EXPECT_EQ(fecha->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(fecha->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(fecha->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
    EXPECT_EQ(fecha->Invoke(id, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
}

TEST(Calls, GiveTheSameObjectBackThatWasGiven) {
    const auto html = support::create(u"cHTML");
    const auto canvas = support::create(u"cCanvas");
    EXPECT_EQ(
        support::put(*html.get(), L"Canvas", support::object(canvas.get()), DISPATCH_PROPERTYPUTREF).result,
        S_OK);
    SystemValue value;
    ::DISPPARAMS none{};
    html->Invoke(support::memberId(*html.get(), L"Canvas"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value,
                 nullptr, nullptr);
    EXPECT_EQ(value.pdispVal, canvas.get());
    const auto fecha = support::create(u"cFecha");
    EXPECT_EQ(
        support::put(*html.get(), L"Canvas", support::object(fecha.get()), DISPATCH_PROPERTYPUTREF).error,
        13);
    EXPECT_EQ(support::put(*html.get(), L"Canvas", support::object(nullptr), DISPATCH_PROPERTYPUTREF).result,
              S_OK);
}

// A table's cell keeps any value: what goes in comes out.

class Cell : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(table);
        ASSERT_EQ(
            support::call(*table.get(), L"Dimension2D",
                          {support::number(1), support::number(1), support::number(1), support::number(1)})
                .result,
            S_OK);
    }
    /// What the cell holds after the value was written to it.
    ::HRESULT through(const ::VARIANT& value, SystemValue& back) {
        std::array<::VARIANT, 3> arguments{value, support::number(1), support::number(1)};
        ::DISPID id = DISPID_PROPERTYPUT;
        const ::DISPID item = support::memberId(*table.get(), L"Item");
        ::DISPPARAMS write{arguments.data(), &id, 3, 1};
        const ::HRESULT result =
            table->Invoke(item, IID_NULL, 0, DISPATCH_PROPERTYPUT, &write, nullptr, nullptr, nullptr);
        if (FAILED(result)) return result;
        ::DISPPARAMS read{arguments.data() + 1, nullptr, 2, 0};
        return table->Invoke(item, IID_NULL, 0, DISPATCH_PROPERTYGET, &read, &back, nullptr, nullptr);
    }
    /// A value of a type, made of a text by the system.
    void expectSame(VARTYPE type, const wchar_t* text) {
        SystemValue value;
        SystemValue source;
        ::VARIANT written = support::text(text);
        ::VariantChangeType(&source, &written, 0, type == VT_DATE ? VT_R8 : VT_BSTR);
        ASSERT_EQ(::VariantChangeType(&value, &source, 0, type), S_OK) << type;
        SystemValue back;
        ASSERT_EQ(through(value, back), S_OK) << type;
        EXPECT_EQ(back.vt, type);
        EXPECT_EQ(::VarCmp(&value, &back, 0, 0), static_cast<::HRESULT>(VARCMP_EQ)) << type;
    }
    void expectWidened(VARTYPE from, const wchar_t* text, VARTYPE to) {
        SystemValue value;
        ::VARIANT source = support::text(text);
        ASSERT_EQ(::VariantChangeType(&value, &source, 0, from), S_OK) << from;
        SystemValue back;
        ASSERT_EQ(through(value, back), S_OK) << from;
        EXPECT_EQ(back.vt, to);
        EXPECT_EQ(::VariantChangeType(&back, &back, 0, VT_BSTR), S_OK);
        EXPECT_STREQ(back.bstrVal, text);
    }

    ComPointer<::IDispatch> table = support::create(u"cMatriz");
};

TEST_F(Cell, KeepsEachTypeOfValue) {
    for (const VARTYPE type : {VT_UI1, VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_BSTR, VT_DECIMAL, VT_DATE})
        expectSame(type, L"12");
    expectSame(VT_BOOL, L"-1");
    expectSame(VT_BSTR, L"");
    for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_ERROR}) {
        SystemValue value;
        value.vt = type;
        value.scode = type == VT_ERROR ? E_ACCESSDENIED : 0;
        SystemValue back;
        ASSERT_EQ(through(value, back), S_OK);
        EXPECT_EQ(back.vt, type);
        if (type == VT_ERROR) {
            EXPECT_EQ(back.scode, E_ACCESSDENIED);
        }
    }
}

TEST_F(Cell, KeepsTypesThatTheLibraryLacksInWiderOnes) {
    expectWidened(VT_I1, L"-7", VT_I2);
    expectWidened(VT_UI2, L"65000", VT_I4);
    expectWidened(VT_UI4, L"7", VT_I4);
    expectWidened(VT_INT, L"-7", VT_I4);
    expectWidened(VT_UINT, L"7", VT_I4);
    expectWidened(VT_I8, L"-5000000000", VT_DECIMAL);
    expectWidened(VT_UI8, L"18446744073709551615", VT_DECIMAL);
    expectWidened(VT_I8, L"5", VT_I4);
}

TEST_F(Cell, KeepsObjectsOfTheProgramAndLetsThemGo) {
    const auto mine = support::programObject();
    {
        SystemValue back;
        ASSERT_EQ(through(support::object(mine.get()), back), S_OK);
        ASSERT_EQ(back.vt, VT_DISPATCH);
        EXPECT_EQ(back.pdispVal, mine.get());
    }
    SystemValue back;
    through(support::number(0), back);
    EXPECT_EQ(mine->references(), 1u);
}

TEST_F(Cell, KeepsArraysWithTheirBounds) {
    std::array<::SAFEARRAYBOUND, 2> bounds{{{2, -3}, {3, 5}}};
    SystemValue value;
    value.vt = VT_ARRAY | VT_I4;
    value.parray = ::SafeArrayCreate(VT_I4, 2, bounds.data());
    for (LONG i = -3; i < -1; ++i)
        for (LONG j = 5; j < 8; ++j) {
            std::array<LONG, 2> place{i, j};
            LONG content = i * 100 + j;
            ::SafeArrayPutElement(value.parray, place.data(), &content);
        }
    SystemValue back;
    ASSERT_EQ(through(value, back), S_OK);
    ASSERT_EQ(back.vt, VT_ARRAY | VT_I4);
    ASSERT_EQ(::SafeArrayGetDim(back.parray), 2u);
    LONG lower = 0;
    ::SafeArrayGetLBound(back.parray, 1, &lower);
    EXPECT_EQ(lower, -3);
    ::SafeArrayGetLBound(back.parray, 2, &lower);
    EXPECT_EQ(lower, 5);
    std::array<LONG, 2> place{-2, 7};
    LONG content = 0;
    ::SafeArrayGetElement(back.parray, place.data(), &content);
    EXPECT_EQ(content, -193);
}

TEST_F(Cell, KeepsArraysOfTextsValuesAndNothing) {
    for (const VARTYPE element : {VT_BSTR, VT_VARIANT, VT_DECIMAL, VT_BOOL, VT_DATE, VT_DISPATCH, VT_I8}) {
        SystemValue value;
        value.vt = static_cast<VARTYPE>(VT_ARRAY | element);
        value.parray = ::SafeArrayCreateVector(element, 4, 3);
        SystemValue back;
        ASSERT_EQ(through(value, back), S_OK) << element;
        EXPECT_EQ(back.vt, element == VT_I8 ? VT_ARRAY | VT_VARIANT : value.vt);
        LONG upper = 0;
        ::SafeArrayGetUBound(back.parray, 1, &upper);
        EXPECT_EQ(upper, 6);
    }
    SystemValue none;
    none.vt = VT_ARRAY | VT_I2;
    SystemValue back;
    EXPECT_EQ(through(none, back), S_OK) << "an array without dimensions";
    EXPECT_EQ(back.vt, VT_ARRAY | VT_I2);
}

TEST_F(Cell, RefusesWhatIsNoValueOfALanguage) {
    SystemValue value;
    value.vt = VT_HRESULT;
    SystemValue back;
    EXPECT_TRUE(FAILED(through(value, back)));
    ::VARIANT nowhere;
    ::VariantInit(&nowhere);
    nowhere.vt = VT_BYREF | VT_I4;
    nowhere.plVal = nullptr;
    EXPECT_TRUE(FAILED(through(nowhere, back)));
}

TEST(Records, TravelBothWays) {
    const auto canvas = support::create(u"cCanvas");
    EXPECT_EQ(
        support::call(*canvas.get(), L"CreateRECT",
                      {support::number(10), support::number(20), support::number(30), support::number(40)})
            .words,
        u"");
    SystemValue rectangle;
    std::array<::VARIANT, 4> sides{support::number(40), support::number(30), support::number(20),
                                   support::number(10)};
    ::DISPPARAMS parameters{sides.data(), nullptr, 4, 0};
    ASSERT_EQ(canvas->Invoke(support::memberId(*canvas.get(), L"CreateRECT"), IID_NULL, 0, DISPATCH_METHOD,
                             &parameters, &rectangle, nullptr, nullptr),
              S_OK);
    ASSERT_EQ(rectangle.vt, VT_RECORD);
    SystemValue field;
    ASSERT_EQ(rectangle.pRecInfo->GetField(rectangle.pvRecord, L"right", &field), S_OK);
    EXPECT_EQ(field.lVal, 30);
    EXPECT_EQ(support::call(*canvas.get(), L"SetClippingRect", {rectangle}).result, S_OK);
}

TEST(Fonts, AreTheSystemsOwnAndChangeWithTheControl) {
    const auto label = support::create(u"lbl");
    SystemValue value;
    ::DISPPARAMS none{};
    label->Invoke(support::memberId(*label.get(), L"Font"), IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &value,
                  nullptr, nullptr);
    const auto font = ComPointer<::IFont>::of(value.pdispVal);
    ASSERT_TRUE(font);
    font->put_Italic(TRUE);
    const auto again = support::get(*label.get(), L"Font");
    EXPECT_EQ(automation::getProperty(again, u"Italic").asBoolean(), true);

    ComPointer<::IFontDisp> other;
    wchar_t name[] = L"Arial";
    ::FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    description.cySize.int64 = 140000;
    description.sWeight = FW_BOLD;
    ASSERT_EQ(::OleCreateFontIndirect(&description, __uuidof(::IDispatch), other.address()), S_OK);
    EXPECT_EQ(
        support::put(*label.get(), L"Font", support::object(other.get()), DISPATCH_PROPERTYPUTREF).result,
        S_OK);
    ::BSTR now = nullptr;
    font->get_Name(&now);
    EXPECT_STREQ(now, L"Arial");
    ::SysFreeString(now);
    BOOL bold = FALSE;
    font->get_Bold(&bold);
    EXPECT_TRUE(bold);
}

TEST(Objects, TellWhatTheyAre) {
    for (const activex::ExportedClass& each : activex::exportedClasses()) {
        SCOPED_TRACE(each.table().name().utf8());
        const auto object = support::create(each.table().name());
        ASSERT_TRUE(object);
        const auto information = ComPointer<::IProvideClassInfo2>::of(object.get());
        ASSERT_TRUE(information);
        ComPointer<::ITypeInfo> type;
        ASSERT_EQ(information->GetClassInfo(type.out()), S_OK);
        ::TYPEATTR* attributes = nullptr;
        type->GetTypeAttr(&attributes);
        EXPECT_EQ(activex::fromNative(attributes->guid), each.id);
        type->ReleaseTypeAttr(attributes);
        ::GUID events{};
        EXPECT_EQ(information->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events),
                  each.hasEvents() ? S_OK : E_FAIL);
        ComPointer<::ITypeInfo> members;
        EXPECT_EQ(object->GetTypeInfo(0, 0, members.out()), S_OK);
        ComPointer<::IDispatch> own;
        EXPECT_EQ(object->QueryInterface(activex::native(each.interfaceId()), own.address()), S_OK);
        const auto supports = ComPointer<::ISupportErrorInfo>::of(object.get());
        ASSERT_TRUE(supports);
        EXPECT_EQ(supports->InterfaceSupportsErrorInfo(IID_IDispatch), S_OK);
    }
}

TEST(Objects, OfAProgramGetValuesAsValues) {
    std::vector<WORD> kinds;
    ComPointer<support::ProgramObject> box;
    box = support::programObject({L"AutoRedraw", L"Refresh"}, [&](::DISPID, auto&, auto*) {
        kinds.push_back(box->calledAs());
        return S_OK;
    });
    const auto html = support::create(u"cHTML");
    EXPECT_EQ(
        support::call(*html.get(), L"RenderInPBox", {support::object(box.get()), support::text(L"a")}).result,
        S_OK);
    EXPECT_EQ(kinds, (std::vector<WORD>{DISPATCH_PROPERTYPUT, DISPATCH_METHOD | DISPATCH_PROPERTYGET}));
}

/// The description of a type of which only the name and the kind matter.
ComPointer<::ITypeInfo> typeNamed(const wchar_t* name, ::TYPEKIND kind) {
    constexpr ::SYSKIND system = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    ComPointer<::ICreateTypeLib2> library;
    ComPointer<::ICreateTypeInfo> made;
    if (FAILED(::CreateTypeLib2(system, L"never_saved.tlb", library.out()))) return {};
    library->CreateTypeInfo(const_cast<wchar_t*>(name), kind, made.out());
    return ComPointer<::ITypeInfo>::of(made.get());
}

/// What a source of records answers: three records of two fields each, "r0c1" in the first's second.
::HRESULT answerRecords(::DISPID id, std::vector<::VARIANT*>& arguments, ::VARIANT* result, int& scanned) {
    switch (id) {
    case 1: // MoveFirst
        return S_OK;
    case 2: { // GetRows
        std::array<::SAFEARRAYBOUND, 2> bounds{{{2, 0}, {3, 0}}};
        result->vt = VT_ARRAY | VT_VARIANT;
        result->parray = ::SafeArrayCreate(VT_VARIANT, 2, bounds.data());
        for (std::array<LONG, 2> at{0, 0}; at[1] < 3; ++at[1])
            for (at[0] = 0; at[0] < 2; ++at[0]) {
                ::VARIANT value = support::number(10 * at[1] + at[0]);
                ::SafeArrayPutElement(result->parray, at.data(), &value);
            }
        return S_OK;
    }
    case 3: // FieldCount
        *result = support::number(2);
        return S_OK;
    case 4: // RecCount
        *result = support::number(3);
        return S_OK;
    case 5: // Scan
        *result = support::boolean(++scanned <= 3);
        return S_OK;
    case 6: // Field_ByColumnNumber
        *result = support::number(10 * (scanned - 1) + arguments[0]->lVal);
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

class SourceOfRecords : public ::testing::Test {
protected:
    bool fills(const wchar_t* member) {
        scanned = 0;
        return support::call(*table.get(), member, {support::object(records.get())}).value.asBoolean();
    }
    /// The column at that place, all records of it: 11 is the second field of the second record.
    std::int32_t cell(std::int32_t col, std::int32_t row) {
        const std::int32_t firstCol = support::get(*table.get(), L"FirstCol").asLong();
        const std::int32_t firstRow = support::get(*table.get(), L"FirstRow").asLong();
        return support::call(*table.get(), L"Item",
                             {support::number(firstCol + col), support::number(firstRow + row)})
            .value.asLong();
    }

    int scanned = 0;
    ComPointer<::IDispatch> table = support::create(u"cMatriz");
    ComPointer<support::ProgramObject> records = support::programObject(
        {L"MoveFirst", L"GetRows", L"FieldCount", L"RecCount", L"Scan", L"Field_ByColumnNumber"},
        [this](::DISPID id, std::vector<::VARIANT*>& arguments, ::VARIANT* result) {
            return answerRecords(id, arguments, result, scanned);
        });
};

TEST_F(SourceOfRecords, IsKnownByTheNameOfItsClass) {
    records->describe(typeNamed(L"IOther", TKIND_DISPATCH), typeNamed(L"Recordset", TKIND_COCLASS));
    ASSERT_TRUE(fills(L"DataFromRecordSet"));
    EXPECT_EQ(support::get(*table.get(), L"Cols").asLong(), 2);
    EXPECT_EQ(support::get(*table.get(), L"Rows").asLong(), 3);
    EXPECT_EQ(cell(0, 0), 0);
    EXPECT_EQ(cell(1, 0), 1);
    EXPECT_EQ(cell(1, 2), 21);
    EXPECT_FALSE(fills(L"DataFromDatos"));
}

TEST_F(SourceOfRecords, IsKnownByItsInterfaceWithoutTheUnderscoreWhenItTellsNoClass) {
    records->describe(typeNamed(L"_Recordset", TKIND_DISPATCH));
    EXPECT_TRUE(fills(L"DataFromRecordSet"));
    EXPECT_EQ(cell(0, 1), 10);
    records->describe(typeNamed(L"_cDatos", TKIND_DISPATCH));
    EXPECT_FALSE(fills(L"DataFromRecordSet"));
    ASSERT_TRUE(fills(L"DataFromDatos"));
    EXPECT_EQ(cell(1, 1), 11);
    EXPECT_EQ(cell(0, 2), 20);
}

TEST_F(SourceOfRecords, OfNoOrAnotherNameFillsNoTable) {
    EXPECT_FALSE(fills(L"DataFromRecordSet"));
    records->describe(typeNamed(L"__Recordset", TKIND_DISPATCH));
    EXPECT_FALSE(fills(L"DataFromRecordSet"));
    EXPECT_FALSE(fills(L"DataFromDatos"));
}

TEST(Objects, MayBePartsOfOthers) {
    const auto factory = support::factoryOf(activex::native(activex::exportedClass(u"lbl")->id));
    const auto outer = support::programObject();
    ComPointer<::IDispatch> refused;
    EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IDispatch, refused.address()), CLASS_E_NOAGGREGATION);
    {
        ComPointer<::IUnknown> inner;
        ASSERT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, inner.address()), S_OK);
        ComPointer<::IOleObject> part;
        ASSERT_EQ(inner->QueryInterface(IID_IOleObject, part.address()), S_OK);
        EXPECT_EQ(ComPointer<::IUnknown>::of(part.get()).get(), static_cast<::IUnknown*>(outer.get()));
    }
    EXPECT_EQ(outer->references(), 1u);
}

TEST(Objects, KeepTheLibraryBusyWhileTheyLive) {
    const auto canUnload = support::exportedFunction<::HRESULT STDAPICALLTYPE()>("DllCanUnloadNow");
    ASSERT_EQ(canUnload(), S_OK);
    auto object = support::create(u"cFecha");
    EXPECT_EQ(canUnload(), S_FALSE);
    object.reset();
    EXPECT_EQ(canUnload(), S_OK);
    auto factory = support::factoryOf(activex::native(activex::exportedClass(u"cFecha")->id));
    EXPECT_EQ(canUnload(), S_FALSE) << "who makes objects may make one";
    factory->LockServer(TRUE);
    factory.reset();
    EXPECT_EQ(canUnload(), S_FALSE);
    support::factoryOf(activex::native(activex::exportedClass(u"cFecha")->id))->LockServer(FALSE);
    EXPECT_EQ(canUnload(), S_OK);
}

TEST(Objects, OfUnknownClassesAreNotMade) {
    EXPECT_FALSE(support::factoryOf(CLSID_StdFont));
    const auto factory = support::factoryOf(activex::native(activex::exportedClass(u"cFecha")->id));
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
    ComPointer<::IStream> stream;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, stream.address()), E_NOINTERFACE);
}

} // namespace
