#pragma once

#include "automation/Ref.h"
#include "conformance/Picture.h"
#include "host/Form.h"
#include "host/PictureBox.h"

#include <string>

namespace conformance {

/// A picture box on a form of its own, which goes with it.
class StageBox {
public:
    /// The size is that of its inside, in pixels.
    StageBox(std::string name, int width, int height);
    ~StageBox();
    StageBox(StageBox&&) = default;
    StageBox& operator=(StageBox&&) = delete;

    automation::Ref<automation::Object> object() const { return automation::Ref<automation::Object>(box_); }
    /// What the box keeps of what was drawn on it.
    Picture picture() const;

private:
    std::string name_;
    automation::Ref<host::Form> form_;
    host::PictureBox* box_ = nullptr;
};

} // namespace conformance
