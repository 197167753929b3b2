#include "platform/runtime/class.h"

#include <gtest/gtest.h>

#include "platform/runtime/message.h"
#include "platform/substrate/substrate.h"

namespace {

class Animal : public NSObject {
  OBJC_CLASS(Animal, NSObject)
};

class Dog : public Animal {
  OBJC_CLASS(Dog, Animal)
};

constexpr const char* sound = "soundWithLoudness:";
int plainSound(Animal&, int loudness) { return loudness; }
int dogSound(Animal&, int loudness) { return loudness * 10; }
int (*previousSound)(Animal&, int) = nullptr;
int hookedSound(Animal& self, int loudness) { return previousSound(self, loudness) + 1000; }

class ClassTest : public testing::Test {
 protected:
  void SetUp() override {
    Animal::objcClass().addMethod(sound, plainSound);
    setTraceSink([this](std::string_view event, const TraceFields& fields) {
      traced_ = std::string(event);
      for (const auto& [key, value] : fields) traced_ += " " + key + "=" + std::get<std::string>(value);
    });
  }
  void TearDown() override { setTraceSink({}); }

  Dog dog_;
  Animal& animal_ = dog_;
  std::string traced_;
};

TEST_F(ClassTest, AMethodIsFoundInSuperclassesAndOnlyUnderItsOwnType) {
  Class& dog = Dog::objcClass();
  EXPECT_EQ(objc_getClass("Dog"), &dog);
  Animal::objcClass().addClassMethod(
      "population", +[] { return 7; });
  EXPECT_EQ(send<int>(animal_, sound, 3), 3);
  EXPECT_THROW(send<void>(animal_, sound, 3), UnrecognizedSelector);
  EXPECT_THROW(send<int>(animal_, sound, 3.0), UnrecognizedSelector);
  EXPECT_THROW(send<int>(animal_, "sound", 3), UnrecognizedSelector);
  EXPECT_EQ(sendToClass<int>(&dog, "population"), 7);
  EXPECT_EQ(sendToClass<int>(objc_getClass("NoSuchClass"), "population"), 0);
}

TEST_F(ClassTest, AReplacedMethodIsReplacedForEveryCaller) {
  MSHookMessageEx(objc_getClass("Animal"), sound, hookedSound, &previousSound);
  EXPECT_EQ(send<int>(animal_, sound, 3), 1003);
  EXPECT_EQ(traced_, "hook class=Animal selector=soundWithLoudness:");
  Dog::objcClass().addMethod(sound, dogSound);
  EXPECT_EQ(send<int>(animal_, sound, 3), 30);

  // What does not exist under that name and type is left alone.
  previousSound = nullptr;
  traced_.clear();
  MSHookMessageEx(objc_getClass("NoSuchClass"), sound, hookedSound, &previousSound);
  MSHookMessageEx(objc_getClass("Animal"), "noSuchMethod", hookedSound, &previousSound);
  void (*otherType)(Animal&) = nullptr;
  MSHookMessageEx(
      objc_getClass("Animal"), sound, +[](Animal&) {}, &otherType);
  EXPECT_TRUE(!previousSound && !otherType && traced_.empty());
}

}  // namespace
