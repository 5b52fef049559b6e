#include "KnownAddresses.h"

#include "ActivityFile.h"

KnownAddresses KnownAddresses::Of(const ActivityFile& file) {
    KnownAddresses known;
    for (const QString& name : file.Names()) {
        known.senders.append(file.Read(name, ActivityField::Sender));
        known.recipients.append(file.Read(name, ActivityField::Recipient));
        known.copies.append(file.Read(name, ActivityField::Cc));
    }
    for (QStringList* list : {&known.senders, &known.recipients, &known.copies}) {
        list->removeAll(QString());
        list->removeDuplicates();
        list->sort(Qt::CaseInsensitive);
    }
    return known;
}
