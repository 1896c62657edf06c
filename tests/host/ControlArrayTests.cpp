#include "HostTest.h"

namespace host {

class ControlArrayTest : public HostTest {};

TEST_F(ControlArrayTest, ElementsShareANameAndDifferInIndex) {
    auto form = makeForm();
    auto& zero = probe(*form, u"b", 0, 0);
    auto& five = probe(*form, u"b", 1, 5);
    ControlArray array = form->array(u"B");
    EXPECT_EQ(array.Count(), 2);
    EXPECT_EQ(array.LBound(), 0);
    EXPECT_EQ(array.UBound(), 5);
    EXPECT_EQ(&array.Item(0), &zero);
    EXPECT_EQ(&array.get<Probe>(5), &five);
    EXPECT_EQ(five.Extender().Index(), 5);
    EXPECT_EQ(errorOf([&] { array.Item(1); }), 340);
    EXPECT_EQ(errorOf([&] { array.Item(-1); }), 340);
}

TEST_F(ControlArrayTest, ANewElementTakesPropertiesAndPlaceAndIsInvisible) {
    auto form = makeForm();
    auto& first = probe(*form, u"b", 2, 3);
    first.Value(u"modelo");
    first.Extender().TabStop(false);
    probe(*form, u"last", 0);
    Control& made = form->array(u"b").Load(4);
    auto& element = dynamic_cast<Probe&>(made);
    EXPECT_EQ(element.Value(), u"modelo");
    EXPECT_EQ(element.bounds(), first.bounds());
    EXPECT_FALSE(element.Extender().Visible());
    EXPECT_FALSE(element.Extender().TabStop());
    EXPECT_EQ(element.Extender().TabIndex(), 2);
    EXPECT_EQ(element.Extender().Name(), u"b");
    EXPECT_EQ(element.log, (Log{"Initialize", "ReadProperties", "Resize"}));
    element.Extender().Visible(true);
    EXPECT_EQ(element.log.back(), "Show");
}

TEST_F(ControlArrayTest, LoadingAnExistingIndexAndUnloadingAMissingOneFail) {
    auto form = makeForm();
    probe(*form, u"b", 0, 0);
    ControlArray array = form->array(u"b");
    EXPECT_EQ(errorOf([&] { array.Load(0); }), 360);
    EXPECT_EQ(errorOf([&] { array.Unload(7); }), 340);
    EXPECT_EQ(errorOf([&] { form->array(u"nadie").LBound(); }), 340);
}

TEST_F(ControlArrayTest, AnUnloadedElementIsGone) {
    auto form = makeForm();
    probe(*form, u"b", 0, 0);
    ControlArray array = form->array(u"b");
    array.Load(1);
    array.Unload(1);
    EXPECT_EQ(array.Count(), 1);
    EXPECT_EQ(form->controls().size(), 1u);
}

/// A control that can't read what was saved of one like it.
class Unreadable : public Probe {
public:
    automation::Ref<Control> another() const override { return automation::make<Unreadable>(); }

protected:
    void onReadProperties(PropertyBag&) override {
        throw automation::Error(automation::errors::InvalidPropertyValue);
    }
};

TEST_F(ControlArrayTest, AnElementThatCannotBeMadeLeavesTheFormAsItWas) {
    auto form = makeForm();
    form->add<Unreadable>(u"b", 0);
    EXPECT_EQ(errorOf([&] { form->array(u"b").Load(1); }), 380);
    EXPECT_EQ(form->array(u"b").Count(), 1);
    EXPECT_EQ(form->controls().size(), 1u);
    EXPECT_TRUE(form->add<Probe>(u"otro").Extender().Visible()) << "only elements of arrays begin invisible";
}

} // namespace host
