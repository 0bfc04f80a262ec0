// A user who reads message boxes and answers them.
#pragma once

#include <string>
#include <vector>

#include "dialogs/Driver.h"

class Boxes {
 public:
  enum Answer { Yes, No };  // the first and the second button

  // One answer for each box that is to come.
  explicit Boxes(std::vector<Answer> answers) : m_driver(StepsFor(answers)) {}

  // What the boxes said, each text followed by "|".
  const std::string& Texts() const { return m_texts; }

 private:
  std::vector<Driver::Step> StepsFor(const std::vector<Answer>& answers) {
    std::vector<Driver::Step> steps;
    for (const Answer answer : answers) {
      steps.push_back([this, answer](HWND box) {
        std::string text;
        for (HWND line : Children(box, "Static")) {
          const std::string more = Driver::TextOf(line);
          if (!more.empty()) text += (text.empty() ? "" : "\n") + more;
        }
        std::erase(text, '\r');
        m_texts += text + "|";
        ::PostMessage(Children(box, "Button").at(answer), BM_CLICK, 0, 0);
      });
    }
    return steps;
  }

  static std::vector<HWND> Children(HWND box, const char* kind) {
    std::vector<HWND> children;
    HWND child = nullptr;
    while ((child = ::FindWindowExA(box, child, kind, nullptr)) != nullptr)
      if (::IsWindowVisible(child)) children.push_back(child);
    return children;
  }

  std::string m_texts;
  Driver m_driver;
};
