#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Controls.h"

namespace {

KeyStroke Key(KeyCode code, bool ctrl = false, bool shift = false, char32_t ch = 0) {
  KeyStroke k;
  k.Code = code;
  k.Ctrl = ctrl;
  k.Shift = shift;
  k.Char = ch;
  return k;
}

// Every key the scripts name; a name in its usual spelling is also the name KeyName gives back.
TEST(ParseKeyName, KnowsEveryKeyTheScriptsNameAndKeyNameGivesTheUsualSpellingBack) {
  struct Case {
    const char* Name;
    KeyStroke Want;
    bool Usual = true;
  };
  const std::vector<Case> cases = {
      {"F1", Key(KeyCode::F1)},
      {"F2", Key(KeyCode::F2)},
      {"F9", Key(KeyCode::F9)},
      {"F10", Key(KeyCode::F10)},
      {"F12", Key(KeyCode::F12)},
      {"Enter", Key(KeyCode::Enter)},
      {"Esc", Key(KeyCode::Escape)},
      {"Tab", Key(KeyCode::Tab)},
      {"PgDn", Key(KeyCode::PageDown)},
      {"PgUp", Key(KeyCode::PageUp)},
      {"Home", Key(KeyCode::Home)},
      {"Ctrl-Home", Key(KeyCode::Home, true)},
      {"Ctrl-End", Key(KeyCode::End, true)},
      {"Ctrl-S", Key(KeyCode::Char, true, false, U'S')},
      {"Ctrl-O", Key(KeyCode::Char, true, false, U'O')},
      {"Ctrl-P", Key(KeyCode::Char, true, false, U'P')},
      {"Ctrl-W", Key(KeyCode::Char, true, false, U'W')},
      {"Shift-F12", Key(KeyCode::F12, false, true)},
      {"Plus", Key(KeyCode::NumPlus)},
      {"Minus", Key(KeyCode::NumMinus)},
      {"Shift-Q", Key(KeyCode::Char, false, true, U'Q')},
      {"Q", Key(KeyCode::Char, false, false, U'Q')},
      {"Backspace", Key(KeyCode::Backspace)},
      {"Delete", Key(KeyCode::Delete)},
      {"Up", Key(KeyCode::Up)},
      {"Down", Key(KeyCode::Down)},
      {"Left", Key(KeyCode::Left)},
      {"Right", Key(KeyCode::Right)},
      {"Ctrl-Shift-F5", Key(KeyCode::F5, true, true)},
      {"5", Key(KeyCode::Char, false, false, U'5'), false},
      {"q", Key(KeyCode::Char, false, false, U'Q'), false},
      {"Escape", Key(KeyCode::Escape), false},
      {"enter", Key(KeyCode::Enter), false},
      {"PageDown", Key(KeyCode::PageDown), false},
      {"ctrl-s", Key(KeyCode::Char, true, false, U'S'), false},
  };
  for (const auto& c : cases) {
    const auto got = ParseKeyName(c.Name);
    ASSERT_TRUE(got.has_value()) << c.Name;
    EXPECT_EQ(*got, c.Want) << c.Name;
    if (c.Usual) {
      EXPECT_EQ(KeyName(*got), c.Name);
    }
  }
  EXPECT_EQ(KeyName(KeyStroke{}), "");
  for (const char* name :
       {"", "F13", "F0", "Ctrl-", "Shift-", "Foo", "Ctrl-Foo", "QQ", " ", "Ctrl"})
    EXPECT_FALSE(ParseKeyName(name).has_value()) << '"' << name << '"';
}

bool DigitsOnly(char32_t ch) {
  return ch >= U'0' && ch <= U'9';
}

TEST(TypeIntoTextBox, TypesThroughTheFilterOverTheSelectedText) {
  struct Case {
    const char* Old;
    const char* Typed;
    const char* Want;
  };
  const std::vector<Case> cases = {
      {"45", "12a3", "123"},  // the refused letter is dropped, the rest replaces "45"
      {"45", "abc", "45"},    // nothing accepted: the selection stays as it was
      {"45", "", ""},         // an empty text clears the box
      {"", "7", "7"},        {"45", "a9", "9"},
  };
  for (const auto& c : cases) {
    Field field{c.Old};
    TypeIntoTextBox(field, {nullptr, DigitsOnly, nullptr}, c.Typed);
    EXPECT_EQ(field.Text, c.Want) << c.Old << " <- " << c.Typed;
  }
}

TEST(TypeIntoTextBox, RunsTheEventsInTheOrderOfAUser) {
  Field field{"old"};
  std::vector<std::string> log;
  TextBoxEvents events;
  events.GotFocus = [&] { log.push_back("got " + field.Text); };
  events.KeyPress = [&](char32_t ch) {
    log.push_back("key " + std::to_string(static_cast<int>(ch)));
    return true;
  };
  events.LostFocus = [&] { log.push_back("lost " + field.Text); };
  TypeIntoTextBox(field, events, "Ωa");
  EXPECT_EQ(log, (std::vector<std::string>{"got old", "key 937", "key 97", "lost Ωa"}));
}

TEST(TypeIntoTextBox, TheFilterSeesTheTextTypedSoFar) {
  // One decimal point only, judged on the box's text at each key as the system's filters do.
  Field field{"3.4"};
  TextBoxEvents events;
  events.KeyPress = [&](char32_t ch) {
    return ch != U'.' || field.Text.find('.') == std::string::npos;
  };
  TypeIntoTextBox(field, events, "1.5.2");
  EXPECT_EQ(field.Text, "1.52");
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
