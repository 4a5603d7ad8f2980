#include "pipeline/new_deal_dialog.h"

#include <QCheckBox>
#include <QCompleter>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>
#include <set>

#include "contacts/contact_lookup_dialog.h"

namespace pelkor::desktop {
namespace {

// Companies offered while typing: a short list is enough to pick from.
constexpr std::int64_t kCompletions = 12;
// A deal is usually expected within a quarter.
constexpr int kDefaultMonthsAhead = 3;

}  // namespace

NewDealDialog::NewDealDialog(std::shared_ptr<IIboStore> store, QWidget* parent)
    : QDialog(parent),
      store_(std::move(store)),
      company_(new QLineEdit(this)),
      first_(new QLineEdit(this)),
      last_(new QLineEdit(this)),
      expert_(new QCheckBox(tr("&Expert mode (the Sales Environment questions too)"), this)),
      dated_(new QCheckBox(tr("&Will happen by"), this)),
      wwih_(new QDateEdit(QDate::currentDate().addMonths(kDefaultMonthsAhead), this)) {
  setObjectName("dlgNewIbo");
  setWindowTitle(tr("New IBO"));
  company_->setObjectName("txtNewCompany");
  company_->setPlaceholderText(tr("The customer's company"));
  auto* completions = new QCompleter(new QStringListModel(this), this);
  completions->setCaseSensitivity(Qt::CaseInsensitive);
  completions->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  company_->setCompleter(completions);
  connect(company_, &QLineEdit::textEdited, this, &NewDealDialog::CompleteCompany);
  connect(company_, &QLineEdit::textChanged, this, &NewDealDialog::UpdateOk);

  auto* pick = new QPushButton(tr("&Look Up..."), this);
  pick->setObjectName("cmdNewContactLookup");
  pick->setToolTip(tr("Choose the contact from the contact book"));
  connect(pick, &QPushButton::clicked, this, &NewDealDialog::PickContact);
  first_->setPlaceholderText(tr("First name"));
  last_->setPlaceholderText(tr("Last name"));
  auto* contact = new QHBoxLayout;
  contact->addWidget(first_);
  contact->addWidget(last_);
  contact->addWidget(pick);

  wwih_->setCalendarPopup(true);
  wwih_->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
  dated_->setChecked(true);
  connect(dated_, &QCheckBox::toggled, wwih_, &QWidget::setEnabled);
  auto* when = new QHBoxLayout;
  when->addWidget(dated_);
  when->addWidget(wwih_, 1);

  auto* form = new QFormLayout;
  form->addRow(tr("&Company:"), company_);
  auto* contactLabel = new QLabel(tr("C&ontact:"), this);
  contactLabel->setBuddy(first_);
  form->addRow(contactLabel, contact);
  form->addRow(QString(), when);
  form->addRow(QString(), expert_);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  ok_ = buttons->button(QDialogButtonBox::Ok);
  ok_->setText(tr("C&reate and Open"));
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(buttons);
  setMinimumWidth(480);
  UpdateOk();
}

NewIbo NewDealDialog::Deal() const {
  NewIbo deal;
  deal.company = company_->text().trimmed().toStdString();
  deal.firstName = first_->text().trimmed().toStdString();
  deal.lastName = last_->text().trimmed().toStdString();
  deal.expert = expert_->isChecked();
  if (dated_->isChecked()) {
    const QDate date = wwih_->date();
    deal.wwihDate = pelkedit::Date::FromCivil(date.year(), date.month(), date.day());
  }
  return deal;
}

void NewDealDialog::UpdateOk() {
  // A deal is with a company; the rest can come later.
  ok_->setEnabled(!company_->text().trimmed().isEmpty());
}

void NewDealDialog::CompleteCompany(const QString& typed) {
  if (typed.trimmed().size() < 2) return;
  std::set<QString> companies;
  try {
    ContactQuery query;
    query.search = typed.toStdString();
    query.limit = kCompletions * 4;
    for (const Contact& contact : store_->SearchContacts(query).first) {
      if (!contact.company.empty()) companies.insert(QString::fromStdString(contact.company));
      if (static_cast<std::int64_t>(companies.size()) >= kCompletions) break;
    }
  } catch (const std::exception&) {
    return;  // no completions; the company can still be typed
  }
  auto* model = static_cast<QStringListModel*>(company_->completer()->model());
  model->setStringList(QStringList(companies.begin(), companies.end()));
}

void NewDealDialog::PickContact() {
  ContactLookupDialog lookup(store_, this);
  if (!company_->text().trimmed().isEmpty()) lookup.Search()->setText(company_->text().trimmed());
  if (lookup.exec() != QDialog::Accepted || !lookup.Chosen()) return;
  const Contact& chosen = *lookup.Chosen();
  first_->setText(QString::fromStdString(chosen.first));
  last_->setText(QString::fromStdString(chosen.last));
  if (!chosen.company.empty()) company_->setText(QString::fromStdString(chosen.company));
}

}  // namespace pelkor::desktop
