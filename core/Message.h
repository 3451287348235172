#pragma once
// A message box of the system and the door through which every screen shows one. The Qt
// prompter shows a QMessageBox; the scripted prompter records every message and answers from
// the script's queue.
#include <deque>
#include <functional>
#include <string>
#include <vector>

enum class MessageButtons { Ok, YesNo };
enum class MessageIcon { None, Information, Exclamation, Question, Critical };
enum class Answer { Ok, Yes, No };

struct Message {
  std::string Title;
  std::vector<std::string> Lines;  // shown with a line break between them
  MessageButtons Buttons = MessageButtons::Ok;
  MessageIcon Icon = MessageIcon::Exclamation;
  Answer Default = Answer::Ok;  // the button that Enter presses
  int Beeps = 0;                // beeps before the box (most boxes of the system: two)

  bool IsQuestion() const { return Buttons == MessageButtons::YesNo; }
  // "Title | line 1 | line 2": how a script run prints a box.
  std::string OneLine() const;
};

class Prompter {
 public:
  virtual ~Prompter() = default;
  virtual Answer Show(const Message& message) = 0;
};

// "YES" / "NO" as the system keeps the last answer; empty for an OK box.
std::string AnswerText(Answer answer);

// The two beeps that come before most boxes of the system.
inline constexpr int kSystemBeeps = 2;

// The shapes of the system's boxes. A notice has one OK button; a question has Yes and No, and
// `byDefault` is the button that Enter presses.
Message NoticeBox(std::string title, std::vector<std::string> lines,
                  MessageIcon icon = MessageIcon::Exclamation, int beeps = 0);
Message QuestionBox(std::string title, std::vector<std::string> lines, Answer byDefault,
                    MessageIcon icon = MessageIcon::Question, int beeps = 0);

// One row of a subsystem's table of boxes: the named code and its box.
template <class Code>
struct MessageEntry {
  Code Id;
  Message Box;
};

// The box of `code` in `table`; an empty notice for a code the table lacks.
template <class Code>
Message BoxOf(const std::vector<MessageEntry<Code>>& table, Code code) {
  for (const auto& entry : table)
    if (entry.Id == code) return entry.Box;
  return NoticeBox({}, {});
}

// Shows a box as the system's message routines do: a question leaves "YES" or "NO" in
// `lastAnswer` for the caller to read and empty; a notice leaves it as it was.
void ShowKeepingAnswer(const Message& box, Prompter& prompter, std::string& lastAnswer);

// Records every message. A question takes the next queued answer, or its default button
// when none is queued.
class ScriptedPrompter : public Prompter {
 public:
  struct Shown {
    Message Box;
    Answer Given;
  };
  Answer Show(const Message& message) override;
  void QueueAnswer(Answer answer) { queued_.push_back(answer); }
  bool HasQueuedAnswers() const { return !queued_.empty(); }
  const std::vector<Shown>& History() const { return history_; }
  void Clear() {
    history_.clear();
    queued_.clear();
  }
  // Called for every box shown, after the answer is known (the script prints it).
  std::function<void(const Shown&)> OnShown;

 private:
  std::deque<Answer> queued_;
  std::vector<Shown> history_;
};
