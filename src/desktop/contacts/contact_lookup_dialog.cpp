#include "contacts/contact_lookup_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "contacts/contact_page_model.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 420;
const int kNameColumnWidth = 150;
const int kCompanyColumnWidth = 170;
const int kEmailColumnWidth = 190;

QString Q(const std::string& text) {
  return QString::fromStdString(text);
}

QString FullName(const Contact& contact) {
  return (Q(contact.first) + ' ' + Q(contact.last)).trimmed();
}

// A small form for a person the book does not hold yet; nullopt when cancelled.
std::optional<Contact> AskForContact(QWidget* parent, const QString& start) {
  QDialog form(parent);
  form.setWindowTitle(QObject::tr("New Contact"));
  auto* layout = new QFormLayout(&form);
  QLineEdit* fields[6];
  const char* const captions[] = {
      "&First name:", "&Last name:", "&Company:", "&Address:", "&Phone:", "&E-mail:"};
  for (int i = 0; i < 6; ++i) {
    fields[i] = new QLineEdit(&form);
    layout->addRow(QObject::tr(captions[i]), fields[i]);
  }
  // What was searched for is most likely the name: "Parker, Helen" or "Helen Parker"; a single
  // word is taken as the last name, as people are most often looked up by it.
  const QString searched = start.simplified();
  const int comma = searched.indexOf(',');
  const QStringList words = searched.split(' ', Qt::SkipEmptyParts);
  if (comma >= 0) {
    fields[1]->setText(searched.left(comma).trimmed());
    fields[0]->setText(searched.mid(comma + 1).trimmed());
  } else if (words.size() >= 2) {
    fields[0]->setText(words.mid(0, words.size() - 1).join(' '));
    fields[1]->setText(words.back());
  } else if (words.size() == 1) {
    fields[1]->setText(words.front());
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, &form);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &form, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &form, &QDialog::reject);
  layout->addRow(buttons);
  while (form.exec() == QDialog::Accepted) {
    Contact contact{0,
                    fields[0]->text().trimmed().toStdString(),
                    fields[1]->text().trimmed().toStdString(),
                    fields[2]->text().trimmed().toStdString(),
                    fields[3]->text().trimmed().toStdString(),
                    fields[4]->text().trimmed().toStdString(),
                    fields[5]->text().trimmed().toStdString()};
    if (!contact.first.empty() || !contact.last.empty()) return contact;
    QMessageBox::information(&form, QObject::tr("New Contact"),
                             QObject::tr("Give the contact a first or a last name."));
  }
  return std::nullopt;
}

}  // namespace

ContactLookupDialog::ContactLookupDialog(std::shared_ptr<IIboStore> store, QWidget* parent)
    : QDialog(parent),
      store_(std::move(store)),
      model_(new ContactPageModel(store_, this)),
      search_(new QLineEdit(this)),
      list_(new QTableView(this)),
      count_(new QLabel(this)) {
  setWindowTitle(tr("Choose a Contact"));
  resize(kWidth, kHeight);
  search_->setPlaceholderText(tr("Search by name, company, e-mail or phone"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  // The database lists the matches by last and first name.
  list_->setModel(model_);
  list_->setSelectionBehavior(QAbstractItemView::SelectRows);
  list_->setSelectionMode(QAbstractItemView::SingleSelection);
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->verticalHeader()->hide();
  list_->horizontalHeader()->setStretchLastSection(true);
  list_->setColumnWidth(0, kNameColumnWidth);
  list_->setColumnWidth(1, kCompanyColumnWidth);
  list_->setColumnWidth(2, kEmailColumnWidth);
  list_->setTabKeyNavigation(false);
  list_->setWordWrap(false);
  list_->verticalHeader()->setDefaultSectionSize(list_->fontMetrics().height() + 8);

  auto* searchLabel = new QLabel(tr("&Search:"), this);
  searchLabel->setBuddy(search_);
  auto* add = new QPushButton(tr("&New Contact..."), this);
  add->setAutoDefault(false);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->button(QDialogButtonBox::Ok)->setText(tr("&Choose"));
  auto* top = new QHBoxLayout;
  top->addWidget(searchLabel);
  top->addWidget(search_, 1);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(count_, 1);
  bottom->addWidget(add);
  bottom->addWidget(buttons);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(list_, 1);
  layout->addLayout(bottom);

  connect(search_, &QLineEdit::textChanged, this, &ContactLookupDialog::Refilter);
  connect(list_, &QTableView::doubleClicked, this, &ContactLookupDialog::Choose);
  connect(buttons, &QDialogButtonBox::accepted, this, &ContactLookupDialog::Choose);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(add, &QPushButton::clicked, this, &ContactLookupDialog::AddContact);
  Load();
  search_->setFocus();
}

void ContactLookupDialog::Load(std::int64_t select) {
  Refilter();
  if (select == 0) return;
  const int row = model_->RowOf(select);
  if (row >= 0) list_->selectRow(row);
}

void ContactLookupDialog::Refilter() {
  try {
    model_->SetSearch(search_->text());
  } catch (const pelkedit::PelkError& error) {
    count_->setText(Q(error.Description()));
    return;
  }
  count_->setText(search_->text().trimmed().isEmpty()
                      ? tr("%n contact(s)", "", static_cast<int>(model_->Total()))
                      : tr("%n matching contact(s)", "", static_cast<int>(model_->Total())));
  if (model_->rowCount() > 0) list_->selectRow(0);
}

void ContactLookupDialog::Choose() {
  const QModelIndexList rows = list_->selectionModel()->selectedRows();
  if (rows.isEmpty()) return;
  if (const Contact* contact = model_->ContactAt(rows.front().row())) chosen_ = *contact;
  if (chosen_) accept();
}

void ContactLookupDialog::AddContact() {
  const auto contact = AskForContact(this, search_->text());
  if (!contact) return;
  try {
    store_->AddContacts({*contact});
  } catch (const pelkedit::PelkError& error) {
    QMessageBox::warning(this, tr("New Contact"), Q(error.Description()));
    return;
  }
  // Found again by the name it was given.
  search_->setText(FullName(*contact));
  std::int64_t id = 0;
  for (int row = 0; row < model_->rowCount(); ++row) {
    Contact same = *model_->ContactAt(row);
    same.id = 0;
    if (same == *contact) id = model_->ContactAt(row)->id;
  }
  Load(id);
}

bool ContactLookupDialog::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress)
    return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp &&
      key != Qt::Key_PageDown) {
    return QDialog::eventFilter(watched, event);
  }
  // The arrows move through the list while the search box keeps the focus.
  const int current = list_->selectionModel()->hasSelection()
                          ? list_->selectionModel()->selectedRows().front().row()
                          : -1;
  const int step = key == Qt::Key_Up     ? -1
                   : key == Qt::Key_Down ? 1
                                         : (key == Qt::Key_PageUp ? -10 : 10);
  const int row = std::clamp(current + step, 0, model_->rowCount() - 1);
  if (row >= 0) list_->selectRow(row);
  return true;
}

}  // namespace pelkor::desktop
