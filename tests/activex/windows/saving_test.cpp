// Controls that are saved from one window of the system's container and loaded into another.

#include "activex/windows/Bag.h"
#include "activex/windows/Container.h"
#include "activex/windows/ProgramObject.h"
#include "activex/windows/SystemContainer.h"

#include <gtest/gtest.h>

namespace {

using activex::ComPointer;
using automation::Variant;
using support::storedTexts;

template <class I>
ComPointer<I> as(const ComPointer<::IDispatch>& control) {
    return ComPointer<I>::of(control.get());
}

/// Two windows of the system's container: what stood in the first is loaded into the second.
class Saving : public ::testing::TestWithParam<const char16_t*> {
protected:
    Saving() {
        as<::IPersistStreamInit>(original)->InitNew();
        EXPECT_EQ(system.attach(*original.get(), first.handle()), S_OK);
        set(L"Alias", support::text(L"clientes"));
        set(L"Campo", support::text(L"Año \"nuevo\" €"));
        set(L"BackColor", support::number(0xC0FFFF));
        set(L"ForeColor", support::number(0x800000));
        set(L"TipoDato", support::number(1));
        set(L"AutoSize", support::number(0));
        set(L"Alignment", support::number(1));
        if (className() == u"get") {
            set(L"Mascara", support::text(L"##,##0.00"));
            set(L"Value", support::number(1234));
            set(L"BotonCombo", support::boolean(true));
            set(L"Locked", support::boolean(true));
        } else {
            set(L"Caption", support::text(L"<b>Uno</b>\r\ndos"));
        }
        const auto font = support::fontOf(*original.get());
        font->put_Italic(TRUE);
        font->put_Size({{120000, 0}}); // 12 points are whole pixels: the system's font objects round others
        ::SIZEL size{5080, 1270};
        as<::IOleObject>(original)->SetExtent(DVASPECT_CONTENT, &size);
    }

    std::u16string className() const { return GetParam(); }
    void set(const wchar_t* name, const ::VARIANT& value) {
        EXPECT_EQ(support::put(*original.get(), name, value).result, S_OK);
    }
    /// The copy has all that was set, before it stands in a window and then.
    void expectSame() {
        const auto expected = storedTexts(*original.get());
        EXPECT_GT(expected.size(), 7u);
        EXPECT_EQ(storedTexts(*copy.get()), expected);
        EXPECT_EQ(as<::IPersistStreamInit>(copy)->IsDirty(), S_FALSE);
        EXPECT_EQ(system.attach(*copy.get(), second.handle()), S_OK);
        auto placed = storedTexts(*copy.get());
        for (const wchar_t* given : {L"_ExtentX", L"_ExtentY"})
            placed[given] = expected.at(given); // the window's size is its control's
        EXPECT_EQ(placed, expected);
    }

    support::SystemContainer system;
    support::ContainerWindow window;
    support::SystemHost first{window.handle(), {8, 8, 168, 32}};
    support::SystemHost second{window.handle(), {8, 40, 168, 64}};
    ComPointer<::IDispatch> original = support::create(className());
    ComPointer<::IDispatch> copy = support::create(className());
};

TEST_P(Saving, ByAPropertyBag) {
    const auto bag = support::makeBag();
    ASSERT_EQ(as<::IPersistPropertyBag>(original)->Save(bag.get(), TRUE, FALSE), S_OK);
    EXPECT_EQ(bag->values.count(L"Campo"), 1u);
    EXPECT_EQ(bag->values.count(L"Scheme"), 0u) << "a value that is the default";
    ASSERT_EQ(as<::IPersistPropertyBag>(copy)->Load(bag.get(), nullptr), S_OK);
    expectSame();
}

TEST_P(Saving, ByAStream) {
    ComPointer<::IStream> stream;
    ::CreateStreamOnHGlobal(nullptr, TRUE, stream.out());
    ASSERT_EQ(as<::IPersistStreamInit>(original)->Save(stream.get(), TRUE), S_OK);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    ASSERT_EQ(as<::IPersistStreamInit>(copy)->Load(stream.get()), S_OK);
    expectSame();
}

TEST_P(Saving, ByAStorage) {
    ComPointer<::ILockBytes> bytes;
    ComPointer<::IStorage> storage;
    ::CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.out());
    ASSERT_EQ(::StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                             0, storage.out()),
              S_OK);
    ASSERT_EQ(::OleSave(as<::IPersistStorage>(original).get(), storage.get(), FALSE), S_OK);
    ::CLSID id{};
    EXPECT_EQ(::ReadClassStg(storage.get(), &id), S_OK);
    EXPECT_EQ(id, activex::native(activex::exportedClass(className())->id));
    ASSERT_EQ(as<::IPersistStorage>(copy)->Load(storage.get()), S_OK);
    expectSame();
}

TEST_P(Saving, RefusesStreamsThatAreNoneOfTheirs) {
    for (const std::string& bytes :
         {std::string(), std::string("x"), std::string("1TSL\xFF\xFF\xFF\xFF", 8),
          std::string("1TSL\x05\0\0\0abc", 11), std::string("1TSL\x03\0\0\0(((", 11)}) {
        ComPointer<::IStream> stream;
        ::CreateStreamOnHGlobal(nullptr, TRUE, stream.out());
        stream->Write(bytes.data(), static_cast<::ULONG>(bytes.size()), nullptr);
        stream->Seek({}, STREAM_SEEK_SET, nullptr);
        EXPECT_TRUE(FAILED(as<::IPersistStreamInit>(copy)->Load(stream.get()))) << bytes.size();
    }
    EXPECT_EQ(as<::IPersistStreamInit>(copy)->Load(nullptr), E_POINTER);
    EXPECT_EQ(as<::IPersistPropertyBag>(copy)->Load(nullptr, nullptr), E_POINTER);
}

/// Names of the values that a control asks for.
std::set<std::wstring> namesAsked(std::u16string_view className) {
    const auto bag = support::makeBag();
    as<::IPersistPropertyBag>(support::create(className))->Load(bag.get(), nullptr);
    return bag->asked;
}

/// A value that no property is of.
Variant foreign() {
    static const auto program =
        support::programObject({}, [](::DISPID, auto&, auto*) { return DISP_E_MEMBERNOTFOUND; });
    support::SystemValue value;
    value.vt = VT_DISPATCH;
    value.pdispVal = ComPointer<::IDispatch>(program.get()).detach();
    return activex::fromSystem(value);
}

/// A control loaded from a bag with one value that is wrong has everything else as it would have without it;
/// the size may follow from what was left out.
void expectPassedOver(std::u16string_view className, const std::wstring& name, const Variant& wrong) {
    SCOPED_TRACE(std::string(name.begin(), name.end()));
    const auto texts = [&](const std::map<std::wstring, Variant>& values) {
        const auto bag = support::makeBag();
        bag->values = values;
        const auto loaded = support::create(className);
        EXPECT_EQ(as<::IPersistPropertyBag>(loaded)->Load(bag.get(), nullptr), S_OK);
        auto all = storedTexts(*loaded.get());
        EXPECT_EQ(all.count(L"_ExtentX") + all.count(L"_ExtentY"), 2u);
        EXPECT_NE(all[name], "ninguno");
        for (const std::wstring& left : {name, std::wstring(L"_ExtentX"), std::wstring(L"_ExtentY")})
            all.erase(left);
        return all;
    };
    EXPECT_EQ(texts({{name, wrong}, {L"Alias", u"clientes"}}), texts({{L"Alias", u"clientes"}}));
}

TEST_P(Saving, PassesOverValuesOfAWrongKind) {
    const auto names = namesAsked(className());
    EXPECT_GT(names.size(), 10u);
    for (const std::wstring& name : names)
        for (const Variant& wrong : {Variant::null(), foreign()})
            if (name != L"Alias") expectPassedOver(className(), name, wrong);
}

TEST_P(Saving, PassesOverWordsWhereNumbersBelong) {
    for (const wchar_t* name : {L"_ExtentX", L"_ExtentY", L"Scheme", L"BackColor", L"ForeColor", L"TipoDato",
                                L"AutoSize", L"Alignment", L"Enabled", L"Font"})
        expectPassedOver(className(), name, u"ninguno");
}

TEST_P(Saving, PassesOverValuesOfAKindThatNobodyKnows) {
    const auto bag = support::makeBag();
    bag->times = {L"BackColor", L"Scheme"};
    bag->values[L"Alias"] = u"clientes";
    bag->values[L"Campo"] = u"nombre";
    EXPECT_EQ(as<::IPersistPropertyBag>(copy)->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(support::get(*copy.get(), L"Alias").asString(), u"clientes");
    EXPECT_EQ(support::get(*copy.get(), L"Campo").asString(), u"nombre");
}

TEST_P(Saving, PassesOverSizesThatNoControlHas) {
    for (const std::int32_t side : {-1, 2'000'000'000}) {
        const auto bag = support::makeBag();
        bag->values[L"_ExtentX"] = side;
        bag->values[L"Alias"] = u"clientes";
        EXPECT_EQ(as<::IPersistPropertyBag>(copy)->Load(bag.get(), nullptr), S_OK);
        EXPECT_EQ(support::get(*copy.get(), L"Alias").asString(), u"clientes");
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, Saving, ::testing::Values(u"lbl", u"get"),
                         [](const auto& tested) { return automation::String(tested.param).utf8(); });

} // namespace
