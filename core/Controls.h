#pragma once
// The small interface through which a screen's logic names its controls: the Qt views wire
// their widgets to it, and the script driver acts on it by name ("FrmRavolin.TxtFlow").
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "TextGrid.h"

// A text box, label or caption as the logic holds it.
struct Field {
  std::string Text;
  bool Enabled = true;
  bool Visible = true;
  int MaxLength = 0;  // characters a user may type; 0: no limit
};

// A drop-down list.
struct ComboBox {
  std::vector<std::string> Items;
  int Index = -1;  // -1: nothing selected
  bool Enabled = true;
  bool Visible = true;
  std::string Text() const {
    return Index >= 0 && Index < static_cast<int>(Items.size()) ? Items[Index] : std::string();
  }
};

// A list of entries of which the user selects some (one, in most lists).
struct ListBox {
  std::vector<std::string> Items;
  std::vector<bool> Selected;  // one flag per entry
  bool Enabled = true;
  bool Visible = true;
  bool MultiSelect = false;  // the user may select several entries
  // The first selected entry, -1 when none is.
  int SelectedIndex() const {
    for (std::size_t i = 0; i < Selected.size() && i < Items.size(); ++i)
      if (Selected[i]) return static_cast<int>(i);
    return -1;
  }
  void SetItems(std::vector<std::string> items) {
    Items = std::move(items);
    Selected.assign(Items.size(), false);
  }
};

// A check box or an option.
struct CheckBox {
  std::string Text;
  bool Value = false;
  bool Enabled = true;
  bool Visible = true;
};

// Keys that reach a screen. Char carries a typed character (letters for Shift-Q and the like).
enum class KeyCode {
  None,
  F1,
  F2,
  F3,
  F4,
  F5,
  F6,
  F7,
  F8,
  F9,
  F10,
  F11,
  F12,
  Enter,
  Escape,
  Tab,
  Backspace,
  Delete,
  PageDown,
  PageUp,
  Home,
  End,
  Up,
  Down,
  Left,
  Right,
  NumPlus,
  NumMinus,
  Char
};

struct KeyStroke {
  KeyCode Code = KeyCode::None;
  bool Ctrl = false;
  bool Shift = false;
  bool Alt = false;
  char32_t Char = 0;  // for KeyCode::Char
  bool operator==(const KeyStroke&) const = default;
};

// "F10", "Ctrl-Home", "Shift-F12", "PgDn", "Plus", "Minus", "Shift-Q", "Q": nullopt when the
// name is unknown.
std::optional<KeyStroke> ParseKeyName(const std::string& name);
std::string KeyName(const KeyStroke& key);

// The events of a text box. KeyPress sees every typed character (8 for Backspace, 13 for
// Enter) and returns false to refuse it, as the entry filters of the system do.
struct TextBoxEvents {
  std::function<void()> GotFocus;
  std::function<bool(char32_t)> KeyPress;
  std::function<void()> LostFocus;
};

// What a user does to a text box when a script says `set`: gives it the focus (its text is
// selected whole), types the new text character by character through the filter (the first
// accepted character replaces the selection; an empty text clears it), and leaves it.
void TypeIntoTextBox(Field& field, const TextBoxEvents& events, const std::string& text);
// The same typing without focus changes: each character through the filter, the first
// accepted one replacing the whole text when `replaceAll` is set. Used by the views for paste.
std::string FilterTyped(const std::string& current, const std::string& typed,
                        const std::function<bool(char32_t)>& keyPress, bool replaceAll);

// What a control is, so that a view knows which widget shows it.
enum class ControlKind { Label, TextBox, ComboBox, ListBox, CheckBox, Command, Grid };

// One control of a screen as the script driver and the views see it, made from the screen's
// control table (ScreenKit.h). Only the operations the control has are set; the pointers lead
// to the logic's own state, which the views render.
struct Control {
  ControlKind Kind = ControlKind::Label;
  std::string Tip;  // the tool tip of a command
  Field* Text = nullptr;
  ComboBox* Combo = nullptr;
  ListBox* List = nullptr;
  CheckBox* Check = nullptr;
  TextGrid* Grid = nullptr;
  TextBoxEvents Events;  // of a text box
  // The address of the logic's member behind the control: the focus is asked for by it.
  const void* Object() const;

  std::function<std::string()> GetText;                         // expect FORM.Ctl "text"
  std::function<void(const std::string&)> Type;                 // set FORM.Txt "text"
  std::function<void()> Press;                                  // press FORM.Ctl
  std::function<void(const std::string&)> ChooseText;           // choose FORM.Cbo "entry"
  std::function<void(int)> ChooseIndex;                         // choose FORM.Cbo #k
  std::function<std::vector<std::string>()> Entries;            // expect FORM.Lst "a" "b"
  std::function<void(const std::vector<std::string>&)> Select;  // select FORM.Lst "a"
  std::function<bool()> Enabled, Visible, Checked;
  // Grids.
  std::function<void(int, int, const std::string&)> EditCell;  // cell FORM.Grid r c "text"
  std::function<void(int, int)> ClickCell;                     // click FORM.Grid r c
  std::function<void(CellBlock)> MarkBlock;                    // mark FORM.Grid r1 c1 r2 c2
};

using ControlMap = std::map<std::string, Control>;

// Ready-made controls over the logic's state.
Control LabelControl(Field& field);
Control TextBoxControl(Field& field, TextBoxEvents events);
Control ComboControl(ComboBox& combo, std::function<void()> click);
Control CommandControl(Field& field, std::function<void()> click);
// A list: `select` leaves exactly the given entries selected, then runs `click`.
Control ListControl(ListBox& list, std::function<void()> click);
Control CheckControl(CheckBox& check, std::function<void()> click);
struct GridEvents {
  std::function<void(int, int, const std::string&)> EditCell;
  std::function<void(int, int)> ClickCell;
  std::function<void(CellBlock)> MarkBlock;
};
Control GridControl(TextGrid& grid, GridEvents events);

// A screen as the script driver, the command boundary and the views see it.
class ScriptScreen {
 public:
  virtual ~ScriptScreen() = default;
  virtual std::string ScreenName() const = 0;
  virtual ControlMap& Controls() = 0;
  // The form sees every key first; true when the key was a command of the form, which then
  // goes no further.
  virtual bool KeyDown(const KeyStroke& key) = 0;
  // The close box.
  virtual void CloseBox() = 0;
  virtual bool Closed() const = 0;
  // The control that the last event asked to have the focus, once: a name of Controls(), or
  // empty when no event asked.
  virtual std::string TakeFocusTarget() { return {}; }
  // A copy of everything the screen shows and keeps, and the way to put it back: the command
  // boundary takes one before each command and puts it back when the command fails.
  virtual std::function<void()> Keep() {
    return [] {};
  }
};
