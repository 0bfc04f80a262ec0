// A user who reads message boxes and answers them.
#pragma once

#include <string>
#include <vector>

#include "dialogs/Driver.h"

class Boxes {
 public:
  enum Answer { Yes, No };  // the first and the second button

  // One answer for each box that is to come.
  explicit Boxes(const std::vector<Answer>& answers) : m_driver(StepsFor(answers)) {}

  // What the boxes said, each text followed by "|".
  const std::string& Texts() const { return m_texts; }

 private:
  std::vector<Driver::Step> StepsFor(const std::vector<Answer>& answers) {
    std::vector<Driver::Step> steps;
    for (const Answer answer : answers) {
      steps.push_back([this, answer](HWND box) {
        std::string text;
        HWND line = nullptr, button = nullptr;
        while ((line = ::FindWindowExA(box, line, "Static", nullptr)) != nullptr) {
          const std::string more = Driver::TextOf(line);
          text += (text.empty() || more.empty() ? "" : "\n") + more;
        }
        std::erase(text, '\r');
        m_texts += text + "|";
        for (int i = 0; i <= answer; ++i) button = ::FindWindowExA(box, button, "Button", nullptr);
        ::PostMessage(button, BM_CLICK, 0, 0);
      });
    }
    return steps;
  }

  std::string m_texts;
  Driver m_driver;
};
