#pragma once
// The message that a canvas shows when GDI fails, for tests.

#include "CanvasTest.h"
#include "support/MsgBoxAnswer.h"

namespace tests {

class CanvasReport : public CanvasTest {
protected:
    /// Expects that the action shows this text, once, and goes on when the user has seen it.
    template <class Action>
    void expectReport(const char16_t* text, Action action) {
        support::Desk desk;
        support::MsgBoxAnswer answer(desk, platform::VK_RETURN);
        action();
        EXPECT_EQ(1, answer.shown());
        EXPECT_EQ(u"Error gráfico G.D.I.", answer.title());
        EXPECT_EQ(text, answer.text());
        EXPECT_EQ(host::MsgBoxStyle::Critical, answer.style());
    }
};

} // namespace tests
