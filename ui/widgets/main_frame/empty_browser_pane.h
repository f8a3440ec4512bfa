#pragma once
// The browser pane of a frame made without a browser maker (the program
// makes CBrowserScreen; tests of the frame alone use this): it shows the
// skin's browser background and nothing else, so the rules that ask about
// the browser find one that is hidden and has no rows.

#include <QWidget>

#include "ui/rules/main_frame/browser_pane.h"

namespace zelvor {

class EmptyBrowserPane final : public QWidget, public BrowserPane {
public:
    explicit EmptyBrowserPane(QWidget* parent);

    QWidget* Widget() override { return this; }
    void DropContents() override {}
    void Reload() override {}
    void ReloadTexts() override {}
    void RedoLayout() override;
    void ShowStatusText(std::u16string_view) override {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_background;
};

} // namespace zelvor
