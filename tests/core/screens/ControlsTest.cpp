#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "Controls.h"

namespace {

// Every key the scripts name, in its usual spelling, which is also the name KeyName gives back:
// the name, the code, Ctrl, Shift and the character.
TEST(ParseKeyName, KnowsEveryKeyTheScriptsNameAndKeyNameGivesTheUsualSpellingBack) {
  using enum KeyCode;
  const std::tuple<const char*, KeyCode, bool, bool, char32_t> cases[] = {
      {"F1", F1, 0, 0, 0},         {"F2", F2, 0, 0, 0},          {"F9", F9, 0, 0, 0},
      {"F10", F10, 0, 0, 0},       {"F12", F12, 0, 0, 0},        {"Enter", Enter, 0, 0, 0},
      {"Esc", Escape, 0, 0, 0},    {"Tab", Tab, 0, 0, 0},        {"PgDn", PageDown, 0, 0, 0},
      {"PgUp", PageUp, 0, 0, 0},   {"Home", Home, 0, 0, 0},      {"Ctrl-Home", Home, 1, 0, 0},
      {"Ctrl-End", End, 1, 0, 0},  {"Ctrl-S", Char, 1, 0, 'S'},  {"Ctrl-O", Char, 1, 0, 'O'},
      {"Ctrl-P", Char, 1, 0, 'P'}, {"Ctrl-W", Char, 1, 0, 'W'},  {"Shift-F12", F12, 0, 1, 0},
      {"Plus", NumPlus, 0, 0, 0},  {"Minus", NumMinus, 0, 0, 0}, {"Shift-Q", Char, 0, 1, 'Q'},
      {"Q", Char, 0, 0, 'Q'},      {"5", Char, 0, 0, '5'},       {"Backspace", Backspace, 0, 0, 0},
      {"Delete", Delete, 0, 0, 0}, {"Up", Up, 0, 0, 0},          {"Down", Down, 0, 0, 0},
      {"Left", Left, 0, 0, 0},     {"Right", Right, 0, 0, 0},    {"Ctrl-Shift-F5", F5, 1, 1, 0}};
  for (const auto& [name, code, ctrl, shift, ch] : cases) {
    const auto got = ParseKeyName(name);
    ASSERT_TRUE(got.has_value()) << name;
    EXPECT_EQ(*got, (KeyStroke{code, ctrl, shift, false, ch})) << name;
    EXPECT_EQ(KeyName(*got), name);
  }
  // Other spellings read as the usual one.
  const std::pair<const char*, const char*> spellings[] = {
      {"q", "Q"},           {"Escape", "Esc"},    {"enter", "Enter"},
      {"PageDown", "PgDn"}, {"ctrl-s", "Ctrl-S"}, {"ESC", "Esc"}};
  for (const auto& [other, usual] : spellings)
    EXPECT_EQ(ParseKeyName(other), ParseKeyName(usual)) << other;
  EXPECT_EQ(KeyName(KeyStroke{}), "");
  for (const char* name :
       {"", "F13", "F0", "Ctrl-", "Shift-", "Foo", "Ctrl-Foo", "QQ", " ", "Ctrl"})
    EXPECT_FALSE(ParseKeyName(name).has_value()) << '"' << name << '"';
}

bool DigitsOnly(char32_t ch) {
  return ch >= U'0' && ch <= U'9';
}

TEST(TypeIntoTextBox, TypesThroughTheFilterOverTheSelectedText) {
  // The old text, what is typed, the text then: a refused letter is dropped and the rest replaces
  // the old text; nothing accepted leaves the selection as it was; an empty text clears the box.
  const std::tuple<const char*, const char*, const char*> cases[] = {{"45", "12a3", "123"},
                                                                     {"45", "abc", "45"},
                                                                     {"45", "", ""},
                                                                     {"", "7", "7"},
                                                                     {"45", "a9", "9"}};
  for (const auto& [old, typed, want] : cases) {
    Field field{old};
    TypeIntoTextBox(field, {nullptr, DigitsOnly, nullptr}, typed);
    EXPECT_EQ(field.Text, want) << old << " <- " << typed;
  }
}

TEST(TypeIntoTextBox, RunsTheEventsInTheOrderOfAUserAndTheFilterSeesTheTextTypedSoFar) {
  Field field{"3.4"};
  std::vector<std::string> log;
  TextBoxEvents events;
  events.GotFocus = [&] { log.push_back("got " + field.Text); };
  // One decimal point only, judged on the box's text at each key as the system's filters do.
  events.KeyPress = [&](char32_t ch) {
    log.push_back("key " + std::to_string(static_cast<int>(ch)));
    return ch != U'.' || field.Text.find('.') == std::string::npos;
  };
  events.LostFocus = [&] { log.push_back("lost " + field.Text); };
  TypeIntoTextBox(field, events, "Ω.5.2");
  EXPECT_EQ(field.Text, "Ω.52");
  EXPECT_EQ(log, (std::vector<std::string>{"got 3.4", "key 937", "key 46", "key 53", "key 46",
                                           "key 50", "lost Ω.52"}));
}

TEST(FilterTyped, ReplacesOrAppends) {
  EXPECT_EQ(FilterTyped("45", "1x2", DigitsOnly, true), "12");
  EXPECT_EQ(FilterTyped("45", "1x2", DigitsOnly, false), "4512");
  EXPECT_EQ(FilterTyped("45", "xy", DigitsOnly, true), "45");
  EXPECT_EQ(FilterTyped("45", "Αβ", nullptr, false), "45Αβ");
}

TEST(Controls, ComboChoosesAsAClickWould) {
  ComboBox combo{{"Φ14x1", "Φ16x1", "Φ18x1"}, 1};
  int clicks = 0;
  Control c = ComboControl(combo, [&] { ++clicks; });
  EXPECT_EQ(c.GetText(), "Φ16x1");
  EXPECT_EQ(c.Entries(), combo.Items);
  c.ChooseText("Φ18x1");
  EXPECT_EQ(combo.Index, 2);
  c.ChooseIndex(0);
  EXPECT_EQ(c.GetText(), "Φ14x1");
  EXPECT_EQ(clicks, 2);
  c.ChooseText("none");
  c.ChooseIndex(3);
  c.ChooseIndex(-1);
  EXPECT_EQ(combo.Index, 0);
  EXPECT_EQ(clicks, 2);
}

}  // namespace
