#include "fields.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>

#include "automation/Conversions.h"
#include "frame/enumerations.h"

namespace bench {

namespace {

class QtField : public TypingField {
public:
    explicit QtField(const char* mask) : picture_(fieldWidth, fieldHeight, QImage::Format_RGB32) {
        edit_.resize(fieldWidth, fieldHeight);
        if (*mask) edit_.setInputMask(QString::fromLatin1(mask));
        edit_.setAttribute(Qt::WA_DontShowOnScreen);
        edit_.show();
        edit_.setFocus();
        QCoreApplication::processEvents();
    }
    void type(char character) override {
        const QString text{QLatin1Char(character)};
        QKeyEvent press(QEvent::KeyPress, character, Qt::NoModifier, text);
        QKeyEvent release(QEvent::KeyRelease, character, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&edit_, &press);
        edit_.render(&picture_);
        QCoreApplication::sendEvent(&edit_, &release);
    }
    void clear() override {
        edit_.clear();
        edit_.setCursorPosition(0);
    }

private:
    QLineEdit edit_;
    QImage picture_;
};

} // namespace

std::unique_ptr<TypingField> makeQtField(const char* mask) {
    return std::make_unique<QtField>(mask);
}

void showQtForm() {
    constexpr int mostCharacters = 32767;
    QWidget form;
    form.resize(formColumns * fieldWidth, formRows * fieldHeight);
    for (int i = 0; i < formFields; ++i) {
        auto* edit = new QLineEdit(&form);
        edit->setGeometry(i % formColumns * fieldWidth, i / formColumns * fieldHeight, fieldWidth,
                          fieldHeight);
        const host::PropertyBag saved = savedField(i);
        const auto number = [&](const char16_t* name, int usual) {
            return automation::CLng(saved.ReadProperty(name, automation::Variant(usual)));
        };
        const auto text = [&](const char16_t* name) {
            const auto read = automation::CStr(saved.ReadProperty(name, automation::Variant(u"")));
            return QString::fromUtf16(read.c_str(), static_cast<int>(read.length()));
        };
        edit->setMaxLength(number(u"MaxLength", mostCharacters));
        edit->setReadOnly(number(u"Locked", 0) != 0);
        edit->setEnabled(number(u"Enabled", 1) != 0);
        edit->setFrame(number(u"BorderStyle", 1) != 0);
        edit->setToolTip(text(u"ToolTip"));
        edit->setInputMask(text(u"Mascara"));
        edit->setText(text(u"Text"));
        const bool right = number(u"Alignment", 0) == tesela::tslAlignmentRightJustify;
        edit->setAlignment(right ? Qt::AlignRight : Qt::AlignLeft);
    }
    form.setAttribute(Qt::WA_DontShowOnScreen);
    form.show();
    QImage picture(form.size(), QImage::Format_RGB32);
    form.render(&picture);
}

} // namespace bench
