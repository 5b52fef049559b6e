// A page of a form that asks for as much room as it needs and scrolls where a screen gives less. Owns the page.
#pragma once

#include <QScrollArea>

class ScrollPage final : public QScrollArea {
    Q_OBJECT
  public:
    explicit ScrollPage(QWidget* page);

    QSize sizeHint() const override;
};
