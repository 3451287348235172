#pragma once
// Message boxes on the desktop: a QMessageBox with the Greek button texts.
#include <QWidget>

#include "Message.h"

class QtPrompter : public Prompter {
 public:
  explicit QtPrompter(QWidget* parent = nullptr) : parent_(parent) {}
  void SetParent(QWidget* parent) { parent_ = parent; }
  Answer Show(const Message& message) override;

 private:
  QWidget* parent_;
};
