#include "LongText.hpp"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace vellix {

void LongText::setDocument(QQuickTextDocument* document) {
  if (document == document_) return;
  if (document_) document_->textDocument()->disconnect(this);
  document_ = document;
  emit documentChanged();
  if (!document) return;
  // It is told of a change before the change is laid out.
  QTextDocument* text = document->textDocument();
  connect(text, &QTextDocument::contentsChange, this, [text](int from, int, int added) {
    for (auto each = text->findBlock(from); each.isValid() && each.position() <= from + added;
         each = each.next()) {
      each.layout()->setCacheEnabled(each.length() > kLong);
    }
  });
}

}  // namespace vellix
