// Members of cCanvas by name, called late-bound. Arguments are numbers, "text", True and False, [ lists ] of
// whole numbers, < bytes > in hexadecimal digits, { rectangles }, and names of surfaces, canvases and
// objects. What the member writes: ? for a number, ?[] for an array, ?"text" for a text of one word.

#include "automation/Argument.h"
#include "automation/Array.h"
#include "automation/ClassTable.h"
#include "automation/Conversions.h"
#include "automation/LateBound.h"
#include "automation/Record.h"
#include "conformance/Stage.h"
#include "conformance/Words.h"
#include "conformance/calls.h"
#include "drawing/cCanvas.h"

#include <deque>

namespace conformance {

using automation::Variant;

namespace {

std::u16string wide(std::string_view text) {
    return {text.begin(), text.end()};
}

// --- What is told ----------------------------------------------------------------------------------

std::string told(const Variant& value);

std::string toldRecord(automation::Record& record) {
    std::string result;
    for (const auto& field : record.table().fields())
        result += told(record.field(field.name.view()));
    return result;
}

/// A picture by its kind and its size in hundredths of a millimetre.
std::string toldObject(const automation::Ref<automation::Object>& object) {
    if (!object) return " nothing";
    std::string result = " picture";
    for (const char16_t* member : {u"Type", u"Width", u"Height"})
        result += told(automation::getProperty(*object, member));
    return result;
}

std::string toldArray(const automation::Array& array) {
    std::string result = " [";
    for (std::size_t i = 0; i < array.size(); ++i)
        result += told(array.element(i));
    return result + " ]";
}

std::string told(const Variant& value) {
    if (value.isEmpty()) return {};
    if (value.isArray()) return toldArray(value.asArray());
    if (value.isObject()) return toldObject(automation::argumentToObject(value));
    if (value.type() == automation::VT_RECORD) return toldRecord(*value.asRecord());
    return ' ' + automation::CStr(value).utf8();
}

// --- Arguments -------------------------------------------------------------------------------------

/// The arguments of one call, and what the member writes.
class CanvasArguments {
public:
    explicit CanvasArguments(Stage& stage) : stage_(stage) {}

    void take(Words& words) {
        while (!words.done())
            values_.push_back(next(words));
    }

    automation::Arguments arguments() const { return {values_, {}}; }
    /// The first one as a handle; 0 if there is none.
    std::uint32_t firstHandle() const {
        const bool isNumber = !values_.empty() && values_[0].type() == automation::VT_I4;
        return isNumber ? static_cast<std::uint32_t>(values_[0].asLong()) : 0;
    }

    std::string written() const {
        std::string result;
        for (const Variant& value : written_)
            result += told(value);
        return result;
    }

private:
    Variant writes(Variant value) { return Variant::byRef(written_.emplace_back(std::move(value))); }

    Variant next(Words& words) {
        const std::string& word = words.peek();
        if (word == "[") return Variant(list(words));
        if (word == "<") return Variant(bytes(words));
        if (word == "{") return rectangle(words);
        words.next();
        if (word == "?") return writes(std::int32_t{0});
        if (word == "?[]") return writes(automation::Array(automation::VT_I4));
        if (word.starts_with("?\"")) return writes(automation::String(wide(word.substr(2, word.size() - 3))));
        if (word == "True" || word == "False") return Variant(word == "True");
        if (word == "Nothing") return Variant::nothing();
        if (word[0] == '"') return Variant(automation::String(wide(word.substr(1))));
        if (word.find('.') != std::string::npos) return Variant(std::stod(word));
        if (const auto* object = stage_.object(word); object && !isCanvas(*object)) return Variant(*object);
        return Variant(static_cast<std::int32_t>(stage_.handle(word)));
    }

    /// A canvas stands for its context.
    static bool isCanvas(const automation::Ref<automation::Object>& object) {
        return dynamic_cast<const tesela::cCanvas*>(object.get()) != nullptr;
    }

    static automation::Array list(Words& words) {
        std::vector<Variant> values;
        for (words.next(); words.peek() != "]";)
            values.emplace_back(static_cast<std::int32_t>(words.number()));
        words.next();
        return automation::Array::ofVariants(values);
    }

    static automation::Array bytes(Words& words) {
        constexpr int hexadecimal = 16;
        std::vector<std::uint8_t> values;
        words.next();
        for (std::string digits = words.next(); digits != ">"; digits = words.next())
            for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
                values.push_back(
                    static_cast<std::uint8_t>(std::stoi(digits.substr(i, 2), nullptr, hexadecimal)));
        return automation::Array::ofBytes(values);
    }

    /// Records are shared: what the member writes into it is seen here.
    Variant rectangle(Words& words) {
        words.next();
        const auto record = automation::make<automation::RecordOf<tesela::RECT_Type>>();
        for (const char16_t* edge : {u"left", u"top", u"right", u"bottom"})
            record->putField(edge, static_cast<std::int32_t>(words.number()));
        if (words.next() != "}") throw std::runtime_error("a rectangle has four edges");
        return writes(automation::Ref<automation::Record>(record));
    }

    Stage& stage_;
    std::vector<Variant> values_;
    std::deque<Variant> written_; ///< Their places are passed on
};

// --- Results ---------------------------------------------------------------------------------------

/// Members whose result the caller ends by DeleteObject.
bool givesObject(const std::string& member) {
    return member.starts_with("Create") || member == "PathToRegion";
}

std::string keep(Stage& stage, const std::string& name, const std::string& member, const Variant& result) {
    if (result.isObject()) {
        const auto object = automation::argumentToObject(result);
        stage.name(name, object);
        return toldObject(object);
    }
    const auto handle = static_cast<std::uint32_t>(result.asLong());
    stage.name(name, handle, handle && givesObject(member));
    return handle ? " made" : " none";
}

} // namespace

std::string callCanvas(Stage& stage, const std::vector<std::string>& words, std::size_t first) {
    tesela::cCanvas& canvas = stage.canvas();
    const bool hasSign = first + 1 < words.size() && words[first + 1] == "=";
    const bool isLet = hasSign && canvas.classTable().find(wide(words[first])) != automation::DISPID_UNKNOWN;
    const std::size_t place = hasSign && !isLet ? first + 2 : first;
    const std::string& member = words.at(place);
    // A property with an index is written as: GlobalCtlCfg = 3 0xFF
    Words rest(words, place + (isLet ? 2 : 1));
    CanvasArguments arguments(stage);
    arguments.take(rest);
    const automation::CallKind kind = isLet ? automation::CallKind::Let : automation::CallKind::MethodOrGet;
    const Variant result = canvas.invokeByName(wide(member), kind, arguments.arguments());
    if (member == "DeleteObject" || member == "DeleteDC" || member == "BitMap2Picture")
        stage.letGo(arguments.firstHandle());
    const std::string said = hasSign && !isLet ? keep(stage, words[first], member, result) : told(result);
    return member + said + arguments.written();
}

} // namespace conformance
