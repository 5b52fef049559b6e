#include "ScrollPage.h"

ScrollPage::ScrollPage(QWidget* page) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(page);
    // The tab's own ground shows through.
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    setAccessibleName(page->accessibleName());
}

QSize ScrollPage::sizeHint() const {
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
}
