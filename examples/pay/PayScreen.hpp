// The example application's one screen: the amount typed on a currency prompt; Enter asks for
// the card and readies the contactless indicator; the card reader's answer shows the outcome
// and plays the indicator's sequence.
#pragma once

#include <ui/app/AppThread.hpp>
#include <ui/app/Screen.hpp>
#include <ui/ui.hpp>

#include <memory>
#include <string>

namespace pay {

class PayScreen : public app::PromptScreen {
public:
    // Enter readies the indicator on the application's thread: a key handler runs under the
    // keyboard's lock, which comes after the indicator's locks in the library's lock order.
    explicit PayScreen(app::AppThread& thread);

    // From the card reader's thread: approved or declined.
    void cardTapped(bool approved);
    // The amount Enter took, in minor units; 0 before.
    long amount() const { return amount_; }
    // The status line's text: empty, then "Present card", then the outcome.
    std::string status() const { return status_->getText(); }

private:
    void showStatus(int text);

    app::AppThread& thread_;
    std::shared_ptr<ui::Label> status_;
    long amount_ = 0;
};

} // namespace pay
