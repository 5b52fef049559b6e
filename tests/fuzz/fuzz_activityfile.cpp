// Any activity file: both forms of an activity read alike, an edit changes nothing but what it is for, and what was
// saved opens again and holds the same. A save that is refused leaves file and document as they were.
#include "ActivityList.h"
#include "ActivityWriter.h"
#include "Require.h"
#include "ScratchStore.h"
#include "StoreError.h"
#include "XmlText.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using Records = QMap<QString, ActivityRecord>; // namesakes read alike

Records recordsOf(const ActivityFile& file) {
    Records records;
    for (const QString& name : file.Names())
        records.insert(name, ActivityRecord::Read(file, name));
    return records;
}

void change(ScratchStore& store, const QString& name, const FieldRow& field, const QString& value, int how) {
    ActivityRecord record = ActivityRecord::Read(store.file, name);
    record.SetText(field.field, value);
    if (how == 0)
        store.file.ChangeAndSave([&] { store.file.Write(name, field.field, value); });
    else if (how == 1)
        Require(ActivityWriter(store.document, store.file, store.prompter, store.texts).Write(name, name, record));
    else
        store.file.ChangeAndSave([&] { store.document.DeleteNode(u"/items/" + name); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static ScratchStore store("");
    static ActivityList list(store.file, store.texts, QLocale::c());
    FuzzedDataProvider input(data, size);
    const QString value = QString::fromStdString(input.ConsumeRandomLengthString(40));
    const FieldRow& field =
        ActivityRecord::Fields()[input.ConsumeIntegralInRange<std::size_t>(0, ActivityRecord::FieldCount - 1)];
    const int how = input.ConsumeIntegralInRange(0, 2);
    const int position = input.ConsumeIntegral<std::uint8_t>();
    const QByteArray bytes = QByteArray::fromStdString(input.ConsumeRemainingBytesAsString());
    Require(store.Write(u"a.kvd"_qs, bytes));
    if (!store.file.Load())
        return 0;
    list.ShowLoaded();
    Records records = recordsOf(store.file);
    const QStringList names = store.file.Names();
    Require(list.Rows() == names.size());
    std::ignore = store.document.ReadNode(u"/items[1]"_qs); // not a plain path: every activity is unfolded
    Require(store.file.Names() == names && recordsOf(store.file) == records);

    const QString name = names.isEmpty() ? QString() : names[position % names.size()];
    try {
        change(store, name, field, value, how);
    } catch (const StoreError&) {
        Require(store.Read(u"a.kvd"_qs) == bytes && store.file.Names() == names && recordsOf(store.file) == records);
        return 0;
    }
    Records changed = recordsOf(store.file);
    const QString before = records.take(name).Text(field.field);
    const QString after = changed.value(name).Text(field.field);
    Require(how != 0 || before.isEmpty() || after == XmlText::Storable(value) || !store.document.IsUsableName(name));
    const Records saved = changed;
    changed.remove(name);
    Require(changed == records);
    Require(store.file.Load() && recordsOf(store.file) == saved);
    return 0;
}
