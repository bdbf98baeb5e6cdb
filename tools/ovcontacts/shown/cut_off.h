#pragma once

class QModelIndex;
class QStyleOptionViewItem;

namespace ovcontacts {

/// What draws rows and can say when a text does not fit.
class DrawsWholeTexts {
 public:
  DrawsWholeTexts() = default;
  DrawsWholeTexts(const DrawsWholeTexts&) = delete;
  DrawsWholeTexts& operator=(const DrawsWholeTexts&) = delete;
  virtual ~DrawsWholeTexts() = default;

  /// Whether a text of the row is shown with an ellipsis in the place that `option` gives it.
  [[nodiscard]] virtual bool isCutOff(const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const = 0;
};

}  // namespace ovcontacts
