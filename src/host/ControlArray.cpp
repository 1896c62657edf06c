#include "host/ControlArray.h"

#include "automation/Error.h"
#include "host/Form.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::int32_t ElementNotFound = 340;
constexpr std::int32_t ElementExists = 360;

} // namespace

std::vector<short> ControlArray::indexes() const {
    std::vector<short> list = form_.indexesOf(name_);
    std::sort(list.begin(), list.end());
    return list;
}

short ControlArray::Count() const {
    return static_cast<short>(indexes().size());
}

Control& ControlArray::Item(short index) const {
    Control* control = index < 0 ? nullptr : form_.find(name_, index);
    if (!control) throw automation::Error(ElementNotFound);
    return *control;
}

short ControlArray::LBound() const {
    const auto list = indexes();
    if (list.empty()) throw automation::Error(ElementNotFound);
    return list.front();
}

short ControlArray::UBound() const {
    const auto list = indexes();
    if (list.empty()) throw automation::Error(ElementNotFound);
    return list.back();
}

Control& ControlArray::Load(short index) {
    if (index < 0) throw automation::Error(ElementNotFound);
    if (form_.find(name_, index)) throw automation::Error(ElementExists);
    return form_.cloneControl(Item(LBound()), index);
}

void ControlArray::Unload(short index) {
    form_.remove(Item(index));
}

} // namespace host
