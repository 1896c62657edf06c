// Members of cCanvas by name, called late-bound. Arguments are numbers, "text", True and False, [lists] of
// whole numbers, {rectangles}, names of surfaces and objects for their handles, and ? for a number that the
// member writes.

#include "automation/Argument.h"
#include "automation/Array.h"
#include "automation/LateBound.h"
#include "conformance/Stage.h"
#include "conformance/Words.h"
#include "conformance/calls.h"
#include "drawing/cCanvas.h"

#include <deque>

namespace conformance {

using automation::Variant;

namespace {

/// The arguments of one call, and what the member writes.
class CanvasArguments {
public:
    CanvasArguments(Stage& stage, tesela::cCanvas& canvas) : stage_(stage), canvas_(canvas) {}

    void take(Words& words) {
        while (!words.done())
            values_.push_back(next(words));
    }

    automation::Arguments arguments() const { return {values_, {}}; }

    std::string written() const {
        std::string result;
        for (const std::int32_t value : written_)
            result += " " + std::to_string(value);
        return result;
    }

private:
    Variant next(Words& words) {
        const std::string& word = words.peek();
        if (word == "[") return list(words, "]");
        if (word == "{") return rectangle(words);
        words.next();
        if (word == "?") return Variant::byRef(written_.emplace_back());
        if (word == "True" || word == "False") return Variant(word == "True");
        if (word[0] == '"') return Variant(automation::String(std::u16string(word.begin() + 1, word.end())));
        if (word.find('.') != std::string::npos) return Variant(std::stod(word));
        return Variant(static_cast<std::int32_t>(stage_.handle(word)));
    }

    static automation::Array numbers(Words& words, const char* end) {
        std::vector<Variant> values;
        for (words.next(); words.peek() != end;)
            values.emplace_back(static_cast<std::int32_t>(words.number()));
        words.next();
        return automation::Array::ofVariants(values);
    }
    static Variant list(Words& words, const char* end) { return Variant(numbers(words, end)); }

    Variant rectangle(Words& words) {
        words.next();
        std::vector<Variant> edges;
        while (words.peek() != "}")
            edges.emplace_back(static_cast<std::int32_t>(words.number()));
        words.next();
        return canvas_.invokeByName(u"CreateRECT", automation::CallKind::Method, {edges, {}});
    }

    Stage& stage_;
    tesela::cCanvas& canvas_;
    std::vector<Variant> values_;
    std::deque<std::int32_t> written_; ///< Their places are passed on
};

std::string told(const Variant& value) {
    return value.isEmpty() ? "" : " " + std::to_string(automation::fromVariant<std::int32_t>(value));
}

} // namespace

tesela::cCanvas& Stage::canvas() {
    for (const auto& canvas : canvases_)
        if (canvas->GetPaintDC() == dc()) return *canvas;
    const std::int32_t handle = static_cast<std::int32_t>(dc().value);
    canvases_.push_back(automation::make<tesela::cCanvas>());
    const Picture size = current_->picture();
    // The caller's context: the canvas draws on the surface itself.
    const Variant arguments[] = {Variant(handle),      Variant(0), Variant(0),   Variant(size.width),
                                 Variant(size.height), Variant(1), Variant(true)};
    canvases_.back()->invokeByName(u"Configure", automation::CallKind::Method, {arguments, {}});
    return *canvases_.back();
}

std::string callCanvas(Stage& stage, const std::vector<std::string>& words, std::size_t first) {
    const bool isLet = first + 1 < words.size() && words[first + 1] == "=";
    Words rest(words, first + (isLet ? 2 : 1));
    CanvasArguments arguments(stage, stage.canvas());
    arguments.take(rest);
    const automation::CallKind kind = isLet ? automation::CallKind::Let : automation::CallKind::MethodOrGet;
    const std::u16string name(words[first].begin(), words[first].end());
    const Variant result = stage.canvas().invokeByName(name, kind, arguments.arguments());
    return words[first] + told(result) + arguments.written();
}

} // namespace conformance
