#include "contacts/contact_filter.h"

namespace pelkor::desktop {

QString SearchForm(const QString& text) {
  QString plain;
  for (const QChar c : text.normalized(QString::NormalizationForm_D)) {
    if (c.category() != QChar::Mark_NonSpacing) plain += c;
  }
  return plain.toCaseFolded();
}

void ContactFilter::SetQuery(const QString& query) {
  words_ = SearchForm(query).split(' ', Qt::SkipEmptyParts);
  invalidateFilter();
}

bool ContactFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  if (words_.isEmpty()) return true;
  QString haystack;
  for (int column = 0; column < sourceModel()->columnCount(parent); ++column) {
    haystack += SearchForm(sourceModel()->index(row, column, parent).data().toString()) + ' ';
  }
  return std::all_of(words_.begin(), words_.end(),
                     [&haystack](const QString& word) { return haystack.contains(word); });
}

bool ContactFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  return QString::localeAwareCompare(SearchForm(left.data().toString()),
                                     SearchForm(right.data().toString())) < 0;
}

}  // namespace pelkor::desktop
