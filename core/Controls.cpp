#include "Controls.h"

#include <algorithm>
#include <array>
#include <utility>

#include "Cp1253.h"

namespace {

struct NamedKey {
  const char* Name;
  KeyCode Code;
};

// The names of the keys; a code's first name is the one KeyName gives back, the later ones
// are other spellings a script may use.
constexpr std::array<NamedKey, 32> kKeyNames = {{
    {"F1", KeyCode::F1},          {"F2", KeyCode::F2},
    {"F3", KeyCode::F3},          {"F4", KeyCode::F4},
    {"F5", KeyCode::F5},          {"F6", KeyCode::F6},
    {"F7", KeyCode::F7},          {"F8", KeyCode::F8},
    {"F9", KeyCode::F9},          {"F10", KeyCode::F10},
    {"F11", KeyCode::F11},        {"F12", KeyCode::F12},
    {"Enter", KeyCode::Enter},    {"Esc", KeyCode::Escape},
    {"Tab", KeyCode::Tab},        {"Backspace", KeyCode::Backspace},
    {"Delete", KeyCode::Delete},  {"PgDn", KeyCode::PageDown},
    {"PgUp", KeyCode::PageUp},    {"Home", KeyCode::Home},
    {"End", KeyCode::End},        {"Up", KeyCode::Up},
    {"Down", KeyCode::Down},      {"Left", KeyCode::Left},
    {"Right", KeyCode::Right},    {"Plus", KeyCode::NumPlus},
    {"Minus", KeyCode::NumMinus}, {"Escape", KeyCode::Escape},
    {"Del", KeyCode::Delete},     {"PageDown", KeyCode::PageDown},
    {"PageUp", KeyCode::PageUp},  {"Return", KeyCode::Enter},
}};

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return Lower(x) == Lower(y); });
}

// Strips one "Ctrl-", "Shift-" or "Alt-" from the front, setting its flag.
bool TakeModifier(std::string_view& name, KeyStroke& key) {
  const std::pair<std::string_view, bool KeyStroke::*> modifiers[] = {
      {"Ctrl-", &KeyStroke::Ctrl}, {"Shift-", &KeyStroke::Shift}, {"Alt-", &KeyStroke::Alt}};
  for (const auto& [prefix, flag] : modifiers) {
    if (name.size() > prefix.size() && SameName(name.substr(0, prefix.size()), prefix)) {
      name.remove_prefix(prefix.size());
      key.*flag = true;
      return true;
    }
  }
  return false;
}

std::optional<KeyCode> NamedCode(std::string_view name) {
  for (const auto& k : kKeyNames)
    if (SameName(name, k.Name)) return k.Code;
  return std::nullopt;
}

std::string CodeName(KeyCode code) {
  for (const auto& k : kKeyNames)
    if (k.Code == code) return k.Name;
  return {};
}

// A letter key is named by its capital, as the key codes of the old platform were.
char32_t KeyChar(char32_t ch) {
  return ch >= U'a' && ch <= U'z' ? ch - U'a' + U'A' : ch;
}

}  // namespace

std::optional<KeyStroke> ParseKeyName(const std::string& name) {
  KeyStroke key;
  std::string_view rest = name;
  while (TakeModifier(rest, key)) {
  }
  if (auto code = NamedCode(rest)) {
    key.Code = *code;
    return key;
  }
  const std::u32string chars = Utf8ToU32(rest);
  if (chars.size() != 1 || chars[0] <= U' ' || chars[0] == 0x7F) return std::nullopt;
  key.Code = KeyCode::Char;
  key.Char = KeyChar(chars[0]);
  return key;
}

std::string KeyName(const KeyStroke& key) {
  std::string base;
  if (key.Code == KeyCode::Char) {
    if (key.Char != 0) AppendUtf8(base, key.Char);
  } else {
    base = CodeName(key.Code);
  }
  if (base.empty()) return {};
  std::string name;
  if (key.Ctrl) name += "Ctrl-";
  if (key.Shift) name += "Shift-";
  if (key.Alt) name += "Alt-";
  return name + base;
}

void TypeIntoTextBox(Field& field, const TextBoxEvents& events, const std::string& text) {
  if (events.GotFocus) events.GotFocus();
  // The focus selects the whole text: the first accepted character replaces it.
  bool selected = true;
  std::size_t length = Utf8ToU32(field.Text).size();
  for (char32_t ch : Utf8ToU32(text)) {
    if (events.KeyPress && !events.KeyPress(ch)) continue;
    if (selected) field.Text.clear(), length = 0;
    selected = false;
    // A full box takes no more characters, as the platform's text box did.
    if (field.MaxLength > 0 && length >= static_cast<std::size_t>(field.MaxLength)) continue;
    AppendUtf8(field.Text, ch);
    ++length;
  }
  // Nothing to type: the user deletes the selection.
  if (text.empty()) field.Text.clear();
  if (events.LostFocus) events.LostFocus();
}

std::string FilterTyped(const std::string& current, const std::string& typed,
                        const std::function<bool(char32_t)>& keyPress, bool replaceAll) {
  std::string result = current;
  bool replacing = replaceAll;
  for (char32_t ch : Utf8ToU32(typed)) {
    if (keyPress && !keyPress(ch)) continue;
    if (replacing) result.clear();
    replacing = false;
    AppendUtf8(result, ch);
  }
  return result;
}

const void* Control::Object() const {
  if (Text) return Text;
  if (Combo) return Combo;
  if (List) return List;
  if (Check) return Check;
  return Grid;
}

Control LabelControl(Field& field) {
  Control c;
  c.Text = &field;
  c.GetText = [&field] { return field.Text; };
  c.Enabled = [&field] { return field.Enabled; };
  c.Visible = [&field] { return field.Visible; };
  return c;
}

Control TextBoxControl(Field& field, TextBoxEvents events) {
  Control c = LabelControl(field);
  c.Kind = ControlKind::TextBox;
  c.Events = events;
  c.Type = [&field, events = std::move(events)](const std::string& text) {
    TypeIntoTextBox(field, events, text);
  };
  return c;
}

Control ComboControl(ComboBox& combo, std::function<void()> click) {
  Control c;
  c.Kind = ControlKind::ComboBox;
  c.Combo = &combo;
  c.GetText = [&combo] { return combo.Text(); };
  c.Entries = [&combo] { return combo.Items; };
  c.Enabled = [&combo] { return combo.Enabled; };
  c.Visible = [&combo] { return combo.Visible; };
  c.ChooseIndex = [&combo, click](int index) {
    if (index < 0 || index >= static_cast<int>(combo.Items.size())) return;
    combo.Index = index;
    if (click) click();
  };
  c.ChooseText = [&combo, choose = c.ChooseIndex](const std::string& text) {
    const auto at = std::find(combo.Items.begin(), combo.Items.end(), text);
    if (at != combo.Items.end()) choose(static_cast<int>(at - combo.Items.begin()));
  };
  return c;
}

Control ListControl(ListBox& list, std::function<void()> click) {
  Control c;
  c.Kind = ControlKind::ListBox;
  c.List = &list;
  c.Entries = [&list] { return list.Items; };
  c.Enabled = [&list] { return list.Enabled; };
  c.Visible = [&list] { return list.Visible; };
  c.Select = [&list, click](const std::vector<std::string>& entries) {
    list.Selected.assign(list.Items.size(), false);
    for (std::size_t i = 0; i < list.Items.size(); ++i)
      for (const std::string& e : entries)
        if (list.Items[i] == e) list.Selected[i] = true;
    if (click) click();
  };
  return c;
}

Control CommandControl(Field& field, std::function<void()> click) {
  Control c = LabelControl(field);
  c.Kind = ControlKind::Command;
  c.Press = std::move(click);
  return c;
}

Control CheckControl(CheckBox& check, std::function<void()> click) {
  Control c;
  c.Kind = ControlKind::CheckBox;
  c.Check = &check;
  c.GetText = [&check] { return check.Text; };
  c.Enabled = [&check] { return check.Enabled; };
  c.Visible = [&check] { return check.Visible; };
  c.Checked = [&check] { return check.Value; };
  c.Press = [&check, click = std::move(click)] {
    check.Value = !check.Value;
    if (click) click();
  };
  return c;
}

Control GridControl(TextGrid& grid, GridEvents events) {
  Control c;
  c.Kind = ControlKind::Grid;
  c.Grid = &grid;
  c.EditCell = std::move(events.EditCell);
  c.ClickCell = std::move(events.ClickCell);
  c.MarkBlock = std::move(events.MarkBlock);
  return c;
}
