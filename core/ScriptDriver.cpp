#include "ScriptDriver.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

bool IsIndexWord(std::string_view word) {
  return word.size() >= 2 && word[0] == '#' &&
         std::all_of(word.begin() + 1, word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

void AddWord(ScriptLine& line, std::string word, bool quoted) {
  line.Words.push_back(std::move(word));
  line.Quoted.push_back(quoted);
}

// A quoted word from the quote at `i`; `i` ends past the closing quote.
std::string QuotedWord(std::string_view text, std::size_t& i, int number) {
  std::string word;
  for (++i; i < text.size() && text[i] != '"'; ++i) {
    if (text[i] == '\\' && i + 1 < text.size() && (text[i + 1] == '"' || text[i + 1] == '\\')) ++i;
    word += text[i];
  }
  if (i == text.size()) throw ScriptError{number, "τα εισαγωγικά δεν κλείνουν"};
  ++i;
  if (i < text.size() && !IsBlank(text[i]))
    throw ScriptError{number, "μετά τα εισαγωγικά που κλείνουν πρέπει να ακολουθεί κενό"};
  return word;
}

ScriptLine SplitLine(std::string_view text, int number) {
  ScriptLine line;
  line.Number = number;
  std::size_t i = 0;
  while (true) {
    while (i < text.size() && IsBlank(text[i])) ++i;
    if (i == text.size()) break;
    if (text[i] == '"') {
      AddWord(line, QuotedWord(text, i, number), true);
      continue;
    }
    const std::size_t start = i;
    while (i < text.size() && !IsBlank(text[i])) ++i;
    const std::string_view word = text.substr(start, i - start);
    if (!line.Words.empty() && IsIndexWord(word)) {
      AddWord(line, std::string(word), false);
      continue;
    }
    const std::size_t hash = word.find('#');
    if (hash != std::string_view::npos) {
      if (hash > 0) AddWord(line, std::string(word.substr(0, hash)), false);
      break;
    }
    AddWord(line, std::string(word), false);
  }
  return line;
}

[[noreturn]] void Stop(const ScriptLine& line, std::string what) {
  throw ScriptError{line.Number, std::move(what)};
}

[[noreturn]] void Mismatch(const ScriptLine& line, const std::string& expected,
                           const std::string& found) {
  Stop(line, "αναμενόταν " + expected + ", βρέθηκε " + found);
}

std::string Quote(const std::string& text) {
  return "\"" + text + "\"";
}

std::string QuoteAll(const std::vector<std::string>& texts) {
  if (texts.empty()) return "(καμία εγγραφή)";
  std::string joined;
  for (const auto& t : texts) joined += (joined.empty() ? "" : " ") + Quote(t);
  return joined;
}

// Words from..end of a line.
std::vector<std::string> WordsFrom(const ScriptLine& line, std::size_t from) {
  if (from >= line.Words.size()) return {};
  return {line.Words.begin() + static_cast<std::ptrdiff_t>(from), line.Words.end()};
}

void NeedWords(const ScriptLine& line, std::size_t count, const char* usage) {
  if (line.Words.size() != count) Stop(line, std::string("η γραμμή πρέπει να γράφεται: ") + usage);
}

int Number(const ScriptLine& line, std::size_t index) {
  const std::string& word = line.Words[index];
  int value = 0;
  const auto [end, ec] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (line.Quoted[index] || ec != std::errc() || end != word.data() + word.size())
    Stop(line, Quote(word) + " δεν είναι ακέραιος αριθμός");
  return value;
}

// An operation of a control, or a clear stop when the control has none; `refusal` says what
// the control does not take.
template <class F>
const F& Operation(const ScriptLine& line, const F& operation, const char* refusal) {
  if (!operation) Stop(line, line.Words[1] + " " + refusal);
  return operation;
}

// A user reaches only a control that is shown and enabled.
void NeedReachable(const ScriptLine& line, const Control& control) {
  if (control.Visible && !control.Visible()) Stop(line, line.Words[1] + " είναι κρυφό");
  if (control.Enabled && !control.Enabled()) Stop(line, line.Words[1] + " είναι ανενεργό");
}

void NeedCell(const ScriptLine& line, const Control& control, int row, int col) {
  const TextGrid* grid = control.Grid;
  if (grid && (row < 1 || row > grid->MaxRows() || col < 1 || col > grid->MaxCols()))
    Stop(line, "το κελί " + std::to_string(row) + " " + std::to_string(col) + " είναι έξω από " +
                   line.Words[1] + " (" + std::to_string(grid->MaxRows()) + " γραμμές, " +
                   std::to_string(grid->MaxCols()) + " στήλες)");
}

struct StateWord {
  const char* Word;
  const char* Opposite;
  std::function<bool()> Control::*State;
  bool Wanted;
};

const StateWord* FindState(const std::string& word) {
  static const StateWord states[] = {
      {"enabled", "disabled", &Control::Enabled, true},
      {"disabled", "enabled", &Control::Enabled, false},
      {"visible", "hidden", &Control::Visible, true},
      {"hidden", "visible", &Control::Visible, false},
      {"checked", "unchecked", &Control::Checked, true},
      {"unchecked", "checked", &Control::Checked, false},
  };
  for (const auto& s : states)
    if (word == s.Word) return &s;
  return nullptr;
}

bool IsWord(const ScriptLine& line, std::size_t index, std::string_view word) {
  return index < line.Words.size() && !line.Quoted[index] && line.Words[index] == word;
}

}  // namespace

std::vector<ScriptLine> ParseScript(const std::string& text) {
  std::string_view rest = text;
  if (rest.starts_with("\xEF\xBB\xBF")) rest.remove_prefix(3);  // a byte order mark
  std::vector<ScriptLine> lines;
  for (int number = 1;; ++number) {
    const std::size_t end = rest.find('\n');
    ScriptLine line = SplitLine(rest.substr(0, end), number);
    if (!line.Words.empty()) lines.push_back(std::move(line));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  return lines;
}

ScriptDriver::ScriptDriver(ScriptedPrompter& prompter, std::filesystem::path folder,
                           std::ostream& out)
    : prompter_(prompter), folder_(std::move(folder)), out_(out) {
  prompter_.OnShown = [this](const ScriptedPrompter::Shown& shown) { PrintShown(shown); };
}

void ScriptDriver::SetCommandRunner(CommandRunner runner) {
  runner_ = std::move(runner);
}

void ScriptDriver::PrintShown(const ScriptedPrompter::Shown& shown) {
  out_ << "[message] " << shown.Box.OneLine();
  if (shown.Box.IsQuestion()) out_ << " -> " << AnswerText(shown.Given);
  out_ << std::endl;
}

int ScriptDriver::RunFile(const std::filesystem::path& file, std::ostream& err) {
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    err << file.string() << ": το σενάριο δεν μπορεί να διαβαστεί" << std::endl;
    return 1;
  }
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return RunText(text, file.string(), err);
}

int ScriptDriver::RunText(const std::string& text, const std::string& fileName, std::ostream& err) {
  fileName_ = fileName;
  lines_.clear();
  next_ = 0;
  try {
    lines_ = ParseScript(text);
    if (startup_ && main_) Act(*main_, startup_);
    while (next_ < lines_.size()) Execute(lines_[next_++]);
    return 0;
  } catch (const ScriptError& e) {
    err << fileName_ << ":" << e.Line << ": " << e.What << std::endl;
  } catch (const std::exception& e) {
    err << fileName_ << ":" << LineNumber() << ": η γραμμή απέτυχε: " << e.what() << std::endl;
  } catch (...) {
    err << fileName_ << ":" << LineNumber() << ": η γραμμή απέτυχε" << std::endl;
  }
  modal_.clear();
  return 1;
}

int ScriptDriver::LineNumber() const {
  return next_ > 0 ? lines_[next_ - 1].Number : 0;
}

void ScriptDriver::RunModal(ScriptScreen& screen) {
  modal_.push_back(&screen);
  while (!screen.Closed() && next_ < lines_.size()) Execute(lines_[next_++]);
  // The script ended with the screen still open: its close box ends it, so that the command
  // that opened it can finish. The close is a command of its own, as a user's click would be:
  // if it fails, only its own changes are undone.
  if (!screen.Closed()) Act(screen, [&screen] { screen.CloseBox(); });
  const auto at = std::find(modal_.begin(), modal_.end(), &screen);
  if (at != modal_.end()) modal_.erase(at, modal_.end());
}

std::optional<std::filesystem::path> ScriptDriver::TakeFileAnswer() {
  if (fileAnswers_.empty()) return std::nullopt;
  auto answer = std::move(fileAnswers_.front());
  fileAnswers_.pop_front();
  return answer;
}

ScriptScreen* ScriptDriver::TopScreen() {
  return modal_.empty() ? main_ : modal_.back();
}

ScriptScreen& ScriptDriver::ScreenNamed(const std::string& name, int line) {
  ScriptScreen* top = TopScreen();
  if (top && top->ScreenName() == name) return *top;
  const bool open = (main_ && main_->ScreenName() == name) ||
                    std::any_of(modal_.begin(), modal_.end(),
                                [&](ScriptScreen* s) { return s->ScreenName() == name; });
  if (open)
    throw ScriptError{line, name +
                                " είναι ανοιχτή αλλά δεν δέχεται γραμμές τώρα: από πάνω είναι η " +
                                top->ScreenName()};
  throw ScriptError{line, "καμία ανοιχτή οθόνη δεν λέγεται " + name +
                              (top ? " (από πάνω είναι η " + top->ScreenName() + ")" : "")};
}

Control& ScriptDriver::ControlNamed(const std::string& dotted, int line, ScriptScreen** screen) {
  const std::size_t dot = dotted.find('.');
  if (dot == std::string::npos || dot == 0 || dot + 1 == dotted.size())
    throw ScriptError{line, Quote(dotted) + " δεν ονομάζει στοιχείο ελέγχου ως FORM.Control"};
  const std::string form = dotted.substr(0, dot);
  const std::string name = dotted.substr(dot + 1);
  ScriptScreen& named = ScreenNamed(form, line);
  ControlMap& controls = named.Controls();
  const auto at = controls.find(name);
  if (at == controls.end())
    throw ScriptError{line, form + " δεν έχει στοιχείο ελέγχου " + Quote(name)};
  if (screen) *screen = &named;
  return at->second;
}

void ScriptDriver::Act(ScriptScreen& screen, const std::function<void()>& action) {
  if (runner_) {
    runner_(screen, action);
  } else {
    action();
  }
}

void ScriptDriver::Execute(const ScriptLine& line) {
  const std::string& verb = line.Words[0];
  if (verb == "set" || verb == "choose" || verb == "select" || verb == "press" || verb == "cell" ||
      verb == "click" || verb == "mark") {
    ControlAction(line);
  } else if (verb == "key" || verb == "close") {
    ScreenAction(line);
  } else if (verb == "answer") {
    AnswerLine(line);
  } else if (verb == "expect") {
    Expect(line);
  } else {
    Stop(line, "άγνωστη εντολή " + Quote(verb));
  }
}

void ScriptDriver::ControlAction(const ScriptLine& line) {
  const std::string& verb = line.Words[0];
  if (line.Words.size() < 2) Stop(line, "η εντολή " + verb + " θέλει FORM.Control");
  ScriptScreen* screen = nullptr;
  const Control& c = ControlNamed(line.Words[1], line.Number, &screen);
  NeedReachable(line, c);
  if (verb == "set") {
    NeedWords(line, 3, "set FORM.Control \"text\"");
    const auto type = Operation(line, c.Type, "δεν δέχεται πληκτρολόγηση");
    Act(*screen, [&] { type(line.Words[2]); });
  } else if (verb == "choose") {
    Choose(line, *screen, c);
  } else if (verb == "select") {
    const auto select = Operation(line, c.Select, "δεν δέχεται επιλογή εγγραφών");
    const auto entries = WordsFrom(line, 2);
    Act(*screen, [&] { select(entries); });
  } else if (verb == "press") {
    NeedWords(line, 2, "press FORM.Control");
    const auto press = Operation(line, c.Press, "δεν πατιέται");
    Act(*screen, [&] { press(); });
  } else {
    GridAction(line, *screen, c);
  }
}

void ScriptDriver::Choose(const ScriptLine& line, ScriptScreen& screen, const Control& c) {
  NeedWords(line, 3, "choose FORM.Control \"entry\" (ή #k)");
  const std::string& word = line.Words[2];
  if (!line.Quoted[2] && IsIndexWord(word)) {
    const auto choose = Operation(line, c.ChooseIndex, "δεν έχει εγγραφές για διάλεξη");
    int index = 0;
    const char* last = word.data() + word.size();
    const auto [end, ec] = std::from_chars(word.data() + 1, last, index);
    if (ec != std::errc() || end != last ||
        (c.Entries && index >= static_cast<int>(c.Entries().size())))
      Stop(line, line.Words[1] + " δεν έχει εγγραφή " + word);
    Act(screen, [&] { choose(index); });
    return;
  }
  const auto choose = Operation(line, c.ChooseText, "δεν έχει εγγραφές για διάλεξη");
  if (c.Entries) {
    const auto entries = c.Entries();
    if (std::find(entries.begin(), entries.end(), word) == entries.end())
      Stop(line, line.Words[1] + " δεν έχει εγγραφή " + Quote(word));
  }
  Act(screen, [&] { choose(word); });
}

void ScriptDriver::GridAction(const ScriptLine& line, ScriptScreen& screen, const Control& c) {
  const std::string& verb = line.Words[0];
  if (verb == "cell") {
    NeedWords(line, 5, "cell FORM.Grid row column \"text\"");
    const int row = Number(line, 2), col = Number(line, 3);
    NeedCell(line, c, row, col);
    const auto edit = Operation(line, c.EditCell, "δεν είναι πλέγμα για γράψιμο σε κελί");
    Act(screen, [&] { edit(row, col, line.Words[4]); });
  } else if (verb == "click") {
    NeedWords(line, 4, "click FORM.Grid row column");
    const int row = Number(line, 2), col = Number(line, 3);
    NeedCell(line, c, row, col);
    const auto click = Operation(line, c.ClickCell, "δεν είναι πλέγμα για κλικ σε κελί");
    Act(screen, [&] { click(row, col); });
  } else {
    NeedWords(line, 6, "mark FORM.Grid row1 column1 row2 column2");
    const CellBlock block{.Col1 = Number(line, 3),
                          .Row1 = Number(line, 2),
                          .Col2 = Number(line, 5),
                          .Row2 = Number(line, 4)};
    NeedCell(line, c, block.Row1, block.Col1);
    NeedCell(line, c, block.Row2, block.Col2);
    const auto mark = Operation(line, c.MarkBlock, "δεν είναι πλέγμα για σημείωση κελιών");
    Act(screen, [&] { mark(block); });
  }
}

void ScriptDriver::ScreenAction(const ScriptLine& line) {
  if (line.Words[0] == "close") {
    NeedWords(line, 2, "close FORM");
    ScriptScreen& screen = ScreenNamed(line.Words[1], line.Number);
    Act(screen, [&] { screen.CloseBox(); });
    return;
  }
  NeedWords(line, 3, "key FORM NAME");
  ScriptScreen& screen = ScreenNamed(line.Words[1], line.Number);
  const auto key = ParseKeyName(line.Words[2]);
  if (!key) Stop(line, "άγνωστο πλήκτρο " + Quote(line.Words[2]));
  Act(screen, [&] { screen.KeyDown(*key); });
}

void ScriptDriver::AnswerLine(const ScriptLine& line) {
  if (IsWord(line, 1, "YES") || IsWord(line, 1, "NO")) {
    NeedWords(line, 2, "answer YES (ή NO)");
    prompter_.QueueAnswer(line.Words[1] == "YES" ? Answer::Yes : Answer::No);
  } else if (IsWord(line, 1, "file")) {
    NeedWords(line, 3, "answer file \"path\"");
    fileAnswers_.push_back(std::filesystem::u8path(line.Words[2]));
  } else if (IsWord(line, 1, "cancel")) {
    NeedWords(line, 2, "answer cancel");
    fileAnswers_.push_back(std::nullopt);
  } else {
    Stop(line, "η εντολή answer θέλει YES, NO, file \"path\" ή cancel");
  }
}

void ScriptDriver::Expect(const ScriptLine& line) {
  if (IsWord(line, 1, "screen")) {
    ExpectScreen(line);
  } else if (IsWord(line, 1, "message")) {
    ExpectMessage(line);
  } else if (IsWord(line, 1, "no") && IsWord(line, 2, "message")) {
    ExpectNoMessage(line);
  } else if (IsWord(line, 1, "no") && IsWord(line, 2, "file")) {
    ExpectFile(line, false);
  } else if (IsWord(line, 1, "file")) {
    ExpectFile(line, true);
  } else if (line.Words.size() >= 2 && !line.Quoted[1] &&
             line.Words[1].find('.') != std::string::npos) {
    ExpectControl(line);
  } else {
    Stop(line, "η εντολή expect θέλει FORM.Control, screen, message, no message, file ή no file");
  }
}

void ScriptDriver::ExpectControl(const ScriptLine& line) {
  const Control& c = ControlNamed(line.Words[1], line.Number);
  const std::vector<std::string> args = WordsFrom(line, 2);
  const std::string& name = line.Words[1];
  if (args.size() == 1 && !line.Quoted[2]) {
    const StateWord* state = FindState(args[0]);
    if (!state)
      Stop(line,
           "άγνωστη κατάσταση " + Quote(args[0]) + " (ένα κείμενο γράφεται πάντα σε εισαγωγικά)");
    const auto& get = c.*(state->State);
    if (!get) Stop(line, name + " δεν έχει κατάσταση " + state->Word);
    if (get() != state->Wanted) Mismatch(line, name + " " + state->Word, state->Opposite);
  } else if (c.Grid && args.size() == 3 && !line.Quoted[2] && !line.Quoted[3]) {
    const int row = Number(line, 2), col = Number(line, 3);
    NeedCell(line, c, row, col);
    const std::string& found = c.Grid->Text(row, col);
    if (found != args[2])
      Mismatch(line, name + " " + args[0] + " " + args[1] + " " + Quote(args[2]), Quote(found));
  } else if (c.Entries && (!c.GetText || args.size() != 1)) {
    const auto found = c.Entries();
    if (found != args) Mismatch(line, name + " " + QuoteAll(args), QuoteAll(found));
  } else if (c.GetText && args.size() == 1) {
    const std::string found = c.GetText();
    if (found != args[0]) Mismatch(line, name + " " + Quote(args[0]), Quote(found));
  } else {
    Stop(line, name + " δεν ελέγχεται με αυτόν τον τρόπο");
  }
}

void ScriptDriver::ExpectScreen(const ScriptLine& line) {
  NeedWords(line, 3, "expect screen FORM");
  ScriptScreen* top = TopScreen();
  const std::string found = top ? "η οθόνη " + top->ScreenName() : "καμία οθόνη";
  if (!top || top->ScreenName() != line.Words[2]) Mismatch(line, "η οθόνη " + line.Words[2], found);
}

void ScriptDriver::ExpectMessage(const ScriptLine& line) {
  NeedWords(line, 3, "expect message \"line\"");
  const auto& history = prompter_.History();
  expectedUpTo_ = std::min(expectedUpTo_, history.size());
  const std::string& wanted = line.Words[2];
  if (expectedUpTo_ == history.size())
    Mismatch(line, "το μήνυμα " + Quote(wanted),
             "κανένα (δεν εμφανίστηκε μήνυμα μετά το τελευταίο αναμενόμενο)");
  const Message& box = history[expectedUpTo_].Box;
  const bool matches = box.Title == wanted ||
                       std::find(box.Lines.begin(), box.Lines.end(), wanted) != box.Lines.end();
  if (!matches) Mismatch(line, "το μήνυμα " + Quote(wanted), Quote(box.OneLine()));
  ++expectedUpTo_;
}

void ScriptDriver::ExpectNoMessage(const ScriptLine& line) {
  NeedWords(line, 3, "expect no message");
  const auto& history = prompter_.History();
  expectedUpTo_ = std::min(expectedUpTo_, history.size());
  if (expectedUpTo_ < history.size())
    Mismatch(line, "κανένα μήνυμα", Quote(history[expectedUpTo_].Box.OneLine()));
}

void ScriptDriver::ExpectFile(const ScriptLine& line, bool present) {
  if (present) {
    NeedWords(line, 5, "expect file \"NAME\" size N");
    if (!IsWord(line, 3, "size"))
      Stop(line, "η γραμμή πρέπει να γράφεται: expect file \"NAME\" size N");
  } else {
    NeedWords(line, 4, "expect no file \"NAME\"");
  }
  const std::string& name = line.Words[present ? 2 : 3];
  const std::filesystem::path file = folder_ / std::filesystem::u8path(name);
  std::error_code ec;
  const bool exists = std::filesystem::is_regular_file(file, ec);
  const auto size = exists ? std::filesystem::file_size(file, ec) : 0;
  const std::string found = exists
                                ? "το αρχείο " + Quote(name) + " μεγέθους " + std::to_string(size)
                                : "κανένα αρχείο " + Quote(name);
  if (!present) {
    if (exists) Mismatch(line, "κανένα αρχείο " + Quote(name), found);
    return;
  }
  const int wanted = Number(line, 4);
  if (!exists || wanted < 0 || size != static_cast<std::uintmax_t>(wanted))
    Mismatch(line, "το αρχείο " + Quote(name) + " μεγέθους " + std::to_string(wanted), found);
}
