#include "AutomationObject.h"
#include "Com.h"
#include "DesktopMailClient.h"
#include "RegistryKey.h"
#include "WindowsServices.h"

namespace {

const wchar_t* const program = L"Outlook.Application";

class OutlookMailClient final : public DesktopMailClient {
  public:
    void Send(const DesktopMail& mail) override;
    bool IsMailHandler() override;
    std::optional<QStringList> Contacts() override;

  private:
    Com m_com; ///< before all objects
};

/// A step that fails is left out.
void OutlookMailClient::Send(const DesktopMail& mail) {
    constexpr long mailItem = 0;
    const AutomationObject outlook = AutomationObject::Create(program);
    const AutomationObject item = outlook.Call(L"CreateItem", {Variant(mailItem)}).Object();
    if (!item)
        return;
    item.Set(L"To", Variant(mail.to));
    item.Set(L"From", Variant(mail.from));
    item.Set(L"CC", Variant(mail.cc));
    item.Set(L"Subject", Variant(mail.subject));
    item.Set(L"Body", Variant(mail.body));
    const AutomationObject attachments = item.Get(L"Attachments").Object();
    for (const QString& path : mail.attachments)
        std::ignore = attachments.Call(L"Add", {Variant(path)});
    std::ignore = item.Call(L"Send", {});
}

bool OutlookMailClient::IsMailHandler() {
    const auto command =
        RegistryKey::Open(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Classes\\mailto\\shell\\open\\command").Text(L"");
    return command && QString::fromStdWString(*command).contains(u"OUTLOOK.EXE", Qt::CaseInsensitive) &&
           AutomationObject::Create(program);
}

std::optional<QStringList> OutlookMailClient::Contacts() {
    constexpr long contactsFolder = 10;
    const AutomationObject outlook = AutomationObject::Create(program);
    const AutomationObject space = outlook.Call(L"GetNamespace", {Variant(QStringLiteral("MAPI"))}).Object();
    const AutomationObject folder = space.Call(L"GetDefaultFolder", {Variant(contactsFolder)}).Object();
    const AutomationObject items = folder.Get(L"Items").Object();
    const AutomationObject contacts =
        items.Call(L"Restrict", {Variant(QStringLiteral("[MessageClass] = 'IPM.Contact'"))}).Object();
    const std::optional<long> count = contacts.Get(L"Count").Number();
    if (!count)
        return std::nullopt;
    QStringList addresses;
    for (long number = 1; number <= *count; ++number) {
        const AutomationObject contact = contacts.Call(L"Item", {Variant(number)}).Object();
        const std::optional<QString> address = contact.Get(L"Email1Address").Text();
        if (!address)
            return std::nullopt;
        addresses.append(*address);
    }
    return addresses;
}

} // namespace

std::unique_ptr<DesktopMailClient> MakeDesktopMailClient() {
    return std::make_unique<OutlookMailClient>();
}
