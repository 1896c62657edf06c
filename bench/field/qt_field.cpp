#include "fields.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>

#include "automation/Conversions.h"
#include "frame/enumerations.h"

namespace bench {

namespace {

QFont fontOfSize() {
    QFont font = QApplication::font();
    font.setPixelSize(fontPixels);
    return font;
}

class QtField : public TypingField {
public:
    explicit QtField(const char* mask) : picture_(fieldWidth, fieldHeight, QImage::Format_RGB32) {
        edit_.resize(fieldWidth, fieldHeight);
        edit_.setFont(fontOfSize());
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

void apply(QLineEdit& edit, const automation::String& name, const automation::Variant& value) {
    if (name == u"Text") {
        const automation::String text = automation::CStr(value);
        edit.setText(QString::fromUtf16(text.c_str(), static_cast<int>(text.length())));
    } else if (name == u"MaxLength") {
        edit.setMaxLength(automation::CLng(value));
    } else if (name == u"Alignment") {
        const bool right = automation::CLng(value) == tesela::tslAlignmentRightJustify;
        edit.setAlignment(right ? Qt::AlignRight : Qt::AlignLeft);
    }
}

} // namespace

std::unique_ptr<TypingField> makeQtField(const char* mask) {
    return std::make_unique<QtField>(mask);
}

void showQtForm() {
    QWidget form;
    form.resize(formColumns * fieldWidth, formRows * fieldHeight);
    form.setFont(fontOfSize());
    for (int i = 0; i < formFields; ++i) {
        auto* edit = new QLineEdit(&form);
        edit->setGeometry(i % formColumns * fieldWidth, i / formColumns * fieldHeight, fieldWidth,
                          fieldHeight);
        for (const auto& [name, value] : savedFields()[static_cast<std::size_t>(i)].items())
            apply(*edit, name, value);
    }
    form.setAttribute(Qt::WA_DontShowOnScreen);
    form.show();
    QImage picture(form.size(), QImage::Format_RGB32);
    form.render(&picture);
}

} // namespace bench
