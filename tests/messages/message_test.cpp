// Messages: which are shown, what is remembered of them, and how they look and answer.
#include "messages/message.h"

#include <gtest/gtest.h>

#include <optional>

#include "dialogs/Driver.h"
#include "messages/texts.h"
#include "resources/resource.h"
#include "support/AssertionLog.h"
#include "support/RegistrySubtree.h"
#include "support/RunProgram.h"

namespace {

constexpr int kCheckBox = MDialog::kFirstId + 2;  // after the icon and a line

// A product registry of a test's own.
class Product {
 public:
  Product() { MRegistry::InitProductRegistry(m_subtree.c_str(), 1); }
  ~Product() { MRegistry::FreeProductRegistry(); }
  Product(const Product&) = delete;
  Product& operator=(const Product&) = delete;

  const MRegistry* operator->() const { return &MRegistry::GetProductRegistry(); }
  const RegistrySubtree& subtree() const { return m_subtree; }

 private:
  RegistrySubtree m_subtree;
};

// The trace log, for a scope.
class TraceLog {
 public:
  TraceLog() { TraceFunction::logFileName = (m_folder / "trace.log").c_str(); }
  ~TraceLog() { TraceFunction::logFileName.Empty(); }
  bool Has(const char* title, const char* text) const {
    return m_folder.Read("trace.log").find(std::string(title) + ": " + text) != std::string::npos;
  }

 private:
  TempFolder m_folder;
};

Driver::Step expectText(const char* text, int id = MDialog::kFirstId + 1) {
  return [=](HWND window) { EXPECT_EQ(Driver::TextOf(::GetDlgItem(window, id)), text); };
}

DWORD askInNewProcess(const Product& product) {
  return RunProgram("message_host.exe ask \"" + product.subtree().path() + "\" " +
                    std::to_string(IDS_NO_INTERNET));
}

}  // namespace

TEST(Message, NoteIsRememberedWithItsAnswer) {
  const struct {
    bool ticked, allow;
    int button;
    int next;  // the answer without a window; 0: it is shown again
  } cases[] = {{true, false, IDOK, IDOK},
               {true, true, IDOK, IDOK},
               {true, true, IDCANCEL, IDCANCEL},
               {true, false, IDCANCEL, 0},
               {false, true, IDOK, 0}};
  for (const auto& c : cases) {
    const Product product;
    const AssertionLog log;
    const auto ask = [&](std::vector<Driver::Step> steps) {
      Message message(Message::MSG_NOTE, IDS_NO_INTERNET);
      message.SetButtons(Message::MB_STYLE_OK_CANCEL);
      message.SetAllowSelectiveCancel(c.allow);
      Driver driver(std::move(steps));
      return message.DoModal();
    };
    std::vector<Driver::Step> steps = {expectText("Don't show me this message again", kCheckBox)};
    if (c.ticked) steps.push_back(Driver::Click(kCheckBox));
    steps.push_back(Driver::Click(c.button));
    EXPECT_EQ(ask(steps), c.button);
    EXPECT_EQ(Message::ShowMessage(IDS_NO_INTERNET), !c.ticked);
    EXPECT_TRUE(log.Empty());
    if (c.next != 0) {
      EXPECT_EQ(ask({}), c.next);
    } else {
      EXPECT_EQ(ask({Driver::Click(IDOK)}), IDOK);
    }
    EXPECT_EQ(log.Names("message"), c.ticked && c.next == 0);
  }
}

TEST(Message, AnswerHoldsInANewProcess) {
  const Product product;
  EXPECT_EQ(askInNewProcess(product), 50U);  // shown
  {
    Driver driver({Driver::Click(kCheckBox), Driver::Press(VK_RETURN)});
    Message(Message::MSG_NOTE, IDS_NO_INTERNET).DoModal();
  }
  EXPECT_EQ(askInNewProcess(product), DWORD{IDOK});
  Message::DontShowMessage(IDS_NO_INTERNET, 1, 0);
  EXPECT_EQ(askInNewProcess(product), DWORD{IDCANCEL});
  Message::DontShowMessage(IDS_NO_INTERNET, 0, 0);
  EXPECT_EQ(askInNewProcess(product), 50U);
}

TEST(Message, DisplayLevelHidesWhatHasAnAnswer) {
  const Product product;
  product->SetMessageDisplayLevel(Message::MSG_WARNING);
  Message::DontShowMessage(IDS_PLAIN, 1, 1);
  for (const auto type : {Message::MSG_NOTE, Message::MSG_INFO}) {
    EXPECT_EQ(Message(type, IDS_PLAIN).DoModal(), IDOK);
  }
  const AssertionLog log;
  {
    Driver driver({Driver::Press(VK_RETURN)});
    EXPECT_EQ(Message(Message::MSG_WARNING, IDS_PLAIN).DoModal(), IDOK);
  }
  EXPECT_TRUE(log.Empty());
  {
    Driver driver({Driver::Press(VK_RETURN)});
    EXPECT_EQ(Message(Message::MSG_INFO, IDS_CHECK).display(), IDOK);
  }
  EXPECT_TRUE(log.Names("message"));
}

TEST(Message, TextsAndInserts) {
  const HINSTANCE own = ::GetModuleHandle(nullptr), other = ::GetModuleHandle("orvane.dll");
  const auto shows = [](Message&& message, const char* text) {
    Driver driver({expectText(text), Driver::Press(VK_RETURN)});
    EXPECT_EQ(message.DoModal(), IDOK);
  };
  const auto type = Message::MSG_INFO;
  shows(Message(type, "50% of & all"), "50% of & all");
  shows(Message(type, "%1, not %%2", "an insert"), "an insert, not %2");
  shows(Message(type, "file %s", "C:\\%1"), "file C:\\%1");
  shows(Message(type, IDS_PLAIN), "100% done");
  shows(Message(type, IDS_PLAIN, own), "100% done");
  shows(Message(type, IDS_INSERTS, 1), "1 of  in ");
  shows(Message(type, IDS_INSERTS, 1U, "two", 3U, own), "1 of two in 3");
  shows(Message(type, IDS_FOLDER_MISSING, "C:\\a", other), "The folder 'C:\\a'  does not exist.");
}

TEST(Message, MissingTextThrows) {
  constexpr UINT kMissing = 64'999;
  int check = 1;
  const std::function<void()> calls[] = {
      [] { Message(Message::MSG_INFO, kMissing); },
      [] { Message(Message::MSG_INFO, kMissing, "insert"); },
      [] { Message::DisplayMessage(Message::MSG_INFO, kMissing); },
      [] { Message::DisplayErrorMessage(kMissing, "insert"); },
      [&] { Message::GetConfirmationWithCheck(IDS_CHECK, check, kMissing); }};
  for (const bool withProduct : {false, true}) {
    std::optional<Product> product;
    if (withProduct) product.emplace();
    for (const auto& call : calls) {
      try {
        call();
        ADD_FAILURE();
      } catch (const char* text) {
        EXPECT_STREQ(text, "Id error");
      }
    }
  }
}

TEST(Message, WarningsAreTraced) {
  const TraceLog log;
  Message::SetTitle("Product");
  for (const auto type : {Message::MSG_INFO, Message::MSG_ERROR}) {
    Driver driver({[](HWND window) { EXPECT_EQ(Driver::TextOf(window), "Product"); },
                   Driver::Press(VK_ESCAPE)});
    Message(type, IDS_PLAIN).DoModal();
    const bool warns = type == Message::MSG_ERROR;
    EXPECT_EQ(log.Has("Title:", "Product"), warns);
    EXPECT_EQ(log.Has("Message:", "100% done"), warns);
  }
  EXPECT_STREQ(Message::GetTitle(), "Product");
  Message::SetTitle("");
}

// No driver: a window would be a failure.
TEST(Message, NothingIsShownSilentlyOrInAServer) {
  const auto stayAway = [] {
    const TraceLog log;
    EXPECT_EQ(Message(Message::MSG_NOTE, IDS_PLAIN).DoModal(), IDOK);
    EXPECT_EQ(Message(Message::MSG_INFO, "the text").DoModal(), IDOK);
    EXPECT_TRUE(log.Has("Message:", "the text"));
    EXPECT_EQ(Message::DisplayErrorMessage(IDS_PLAIN), IDOK);
    EXPECT_TRUE(Message::GetConfirmation(IDS_PLAIN));
  };
  for (const bool withProduct : {false, true}) {
    std::optional<Product> product;
    if (withProduct) product.emplace();
    Message::SetSilent(1);
    EXPECT_EQ(Message::IsSilent(), 1);
    stayAway();
    Message::SetSilent(0);
    AssertVerifyTrace::BlockGuiMessages(1);
    stayAway();
    EXPECT_FALSE(Message::ShowMessage(IDS_PLAIN));
    EXPECT_EQ(MMessageBox("", "the text").DoModal(), IDOK);
    AssertVerifyTrace::BlockGuiMessages(0);
  }
}

TEST(Message, Confirmations) {
  const Product product;
  const struct {
    UINT checkText;
    Driver::Step press;
    BOOL answer;
    int check;
  } cases[] = {{0, Driver::Press(VK_RETURN), TRUE, 7},
               {0, Driver::Press(VK_ESCAPE), FALSE, 7},
               {IDS_CHECK, Driver::Click(IDOK), TRUE, 0},
               {IDS_CHECK, Driver::Click(IDCANCEL), FALSE, 0}};
  for (const auto& c : cases) {
    int check = c.checkText == 0 ? 7 : 1;
    std::vector<Driver::Step> steps = {expectText("1 of two in ")};
    if (c.checkText != 0) steps.push_back(Driver::Click(kCheckBox));
    steps.push_back(c.press);
    Driver driver(steps);
    EXPECT_EQ(Message::GetConfirmationWithCheck(c.checkText, check, IDS_INSERTS, 1, "two"),
              c.answer);
    EXPECT_EQ(check, c.check);
  }
}

// The system's message box: its text has the id 65535 there.
TEST(Message, WithoutAProductRegistry) {
  const AssertionLog log;
  {
    Driver driver({expectText("100% done", 0xFFFF), Driver::Press(VK_RETURN)});
    EXPECT_EQ(Message::DisplayMessage(Message::MSG_NOTE, IDS_PLAIN), IDOK);
  }
  for (const int button : {IDYES, IDNO}) {
    Driver driver({Driver::Click(button)});
    EXPECT_EQ(Message::GetConfirmation(IDS_INSERTS, "a"), button == IDYES);
  }
  {
    Driver driver({[](HWND window) { EXPECT_EQ(::GetDlgItem(window, kCheckBox), nullptr); },
                   Driver::Press(VK_RETURN)});
    EXPECT_EQ(Message(Message::MSG_NOTE, IDS_PLAIN).DoModal(), IDOK);
  }
  EXPECT_TRUE(log.Empty());
}
