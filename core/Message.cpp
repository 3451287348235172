#include "Message.h"

#include <utility>

std::string Message::OneLine() const {
  std::string text = Title;
  for (const auto& line : Lines) {
    text += " | ";
    text += line;
  }
  return text;
}

std::string AnswerText(Answer answer) {
  switch (answer) {
    case Answer::Yes:
      return "YES";
    case Answer::No:
      return "NO";
    case Answer::Ok:
      break;
  }
  return {};
}

Message NoticeBox(std::string title, std::vector<std::string> lines, MessageIcon icon, int beeps) {
  Message m;
  m.Title = std::move(title);
  m.Lines = std::move(lines);
  m.Buttons = MessageButtons::Ok;
  m.Icon = icon;
  m.Default = Answer::Ok;
  m.Beeps = beeps;
  return m;
}

Message QuestionBox(std::string title, std::vector<std::string> lines, Answer byDefault,
                    MessageIcon icon, int beeps) {
  Message m = NoticeBox(std::move(title), std::move(lines), icon, beeps);
  m.Buttons = MessageButtons::YesNo;
  m.Default = byDefault;
  return m;
}

void ShowKeepingAnswer(const Message& box, Prompter& prompter, std::string& lastAnswer) {
  const Answer answer = prompter.Show(box);
  if (box.IsQuestion()) lastAnswer = AnswerText(answer);
}

namespace {

// A question box has only Yes and No: an answer of Ok (queued or as the default) presses the
// first button, as Enter does on a box whose default was never set.
Answer QuestionAnswer(Answer answer) {
  return answer == Answer::Ok ? Answer::Yes : answer;
}

}  // namespace

Answer ScriptedPrompter::Show(const Message& message) {
  Answer given = Answer::Ok;
  if (message.IsQuestion()) {
    if (queued_.empty()) {
      given = QuestionAnswer(message.Default);
    } else {
      given = QuestionAnswer(queued_.front());
      queued_.pop_front();
    }
  }
  history_.push_back(Shown{message, given});
  if (OnShown) {
    const Shown shown = history_.back();  // a copy: the hook may show another box
    OnShown(shown);
  }
  return given;
}
