// Reads records pair by pair.
#pragma once

#include "base/NamedCodePage.h"
#include "prepare/drawing/Drawing.h"
#include "prepare/drawing/Fields.h"
#include "prepare/pairs/PairReader.h"
#include "prepare/report/Report.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace prepare {

// Whether a header with this $DWGCODEPAGE and $ACADVER, which may be empty, leaves open in which code page
// the texts are. From R2007 on they are UTF-8.
bool IsCodePageUnknown(std::string_view name, std::string_view version);

// What all readers of records share: the pairs, the drawing that names go to, and the report.
class RecordReader {
public:
    // The most elements of one list of an entity. The rest is cut and reported.
    static constexpr std::size_t kMostElements = 1'000'000;

    // All must outlive this. report may be null. Throws std::bad_alloc.
    RecordReader(CDxfSource& source, std::string_view encoding, Drawing& drawing, Report* report);

    Drawing& drawing;

    // Steps to the next pair, whatever it is; false at the end of the file.
    bool NextPair()
    {
        if (m_isAgain) {
            m_isAgain = false;
            return m_hasPair;
        }
        m_hasPair = m_pairs.Next();
        return m_hasPair;
    }

    // Steps to the next pair of the record; false where another record begins, as often as it is asked for.
    bool NextField()
    {
        if (!m_isAgain) [[likely]]
            m_hasPair = m_pairs.Next();
        m_isAgain = m_pairs.Code() == 0;
        return !m_isAgain;
    }

    // The next call of NextPair or NextField gives the current pair again.
    void Unread() { m_isAgain = true; }

    std::int32_t Code() const { return m_pairs.Code(); }
    CDxfLine Value() const { return m_pairs.Value(); }
    // The value as a word of the format, without blanks. A few programs write such words in small letters: it
    // comes in capitals. Good until the next call, and no longer than the value.
    std::string_view Word();
    std::uint64_t Line() const { return m_pairs.Line(); }
    const PairReader& Pairs() const { return m_pairs; }

    // Reads the rest of a record.
    template <class Record, std::size_t count>
    void Read(Record& record, const FieldTable<Record, count>& table)
    {
        std::uint64_t seen = 0;
        while (NextField())
            Store(record, table, seen);
    }

    // The same up to a code that is not in the table, which is unread.
    template <class Record, std::size_t count>
    void ReadPart(Record& record, const FieldTable<Record, count>& table)
    {
        std::uint64_t seen = 0;
        while (NextField()) {
            if (table.Index(Code()) == 0)
                return Unread();
            Store(record, table, seen);
        }
    }

    // Stores the current pair.
    template <class Record, std::size_t count>
    void StoreOne(Record& record, const FieldTable<Record, count>& table)
    {
        StoreValue(record, table.Find(Code()));
    }

    // Steps over the rest of a record.
    void SkipFields()
    {
        while (NextField()) {
        }
    }
    // Steps over a group's pairs (102) up to its closing brace, and not beyond the record or its own data.
    void SkipGroup();

    // Each converts a value. A word gives 0. So do "nan" and its like, and what is beyond kMostCoordinate,
    // which are faults of the record.
    double Real(CDxfLine value)
    {
        const double real = ParseLineReal(value);
        if (real == 0 || std::fabs(real) == 1 || !(std::fabs(real) <= kMostCoordinate)) [[unlikely]]
            return LookAtReal(value, real);
        return real;
    }
    // The same of one part of many, of which a fault is not the record's.
    double RealOfPart(CDxfLine value, Fault& fault)
    {
        const Fault before = TakeFault();
        const double real = Real(value);
        fault = std::exchange(m_fault, before);
        return real;
    }
    std::int32_t Integer(std::string_view value)
    {
        const std::int32_t integer = ParseInteger(value);
        if (integer == 0 && !EndsInDigit(value)) [[unlikely]]
            LookAtZero(value);
        return integer;
    }
    Handle ReadHandle(std::string_view value) const;
    std::string Text(std::string_view value);
    NameId Name(std::string_view value);

    // Each adds to a list or a text, which may grow up to kMostElements. The record's rest is skipped then.
    template <class Element>
    void Append(std::vector<Element>& list, const Element& element)
    {
        if (list.size() < kMostElements) [[likely]]
            list.push_back(element);
        else
            Cut();
    }
    void AppendText(std::string& text, std::string_view value)
    {
        if (text.size() < kMostElements) [[likely]]
            text += Text(value);
        else
            Cut();
    }

    // Each says whether there was such a value since the last call: a number that is a fault, a word.
    Fault TakeFault() { return std::exchange(m_fault, Fault::None); }
    bool TakeHasWord() { return std::exchange(m_hasWord, false); }
    bool TakeIsCut() { return std::exchange(m_isCut, false); }

    // How texts are read from now on; without effect when the encoding was given. version is the drawing's
    // $ACADVER: from R2007 on texts are UTF-8.
    void SetCodePage(std::string_view name, std::string_view version);

    // Findings go to this report from now on; nowhere if it is null.
    void SetReport(Report* report) { m_report = report; }
    // Notes an end that is missing; not where reading failed, as it may be in what was not read.
    void NoteMissingEnd(std::string_view subject, std::string_view detail, std::uint64_t line) const
    {
        if (!m_pairs.HasFailed())
            Note(Finding::Repaired, subject, detail, line);
    }
    void Note(Finding finding, std::string_view subject, std::string_view detail, std::uint64_t line,
              std::uint64_t times = 1) const
    {
        if (m_report != nullptr)
            m_report->Add(finding, subject, detail, line, times);
    }

    // Reports that values of a record were read as 0, if any was. line is that of the record's type.
    void NoteWords(std::string_view type, std::uint64_t line);
    // The same for a record that is no entity: it is kept with a fault, too.
    void NoteZeros(std::string_view type, std::uint64_t line);

    // How far an entity has been read, for fields that mean different things at different places; 0 at its
    // begin.
    std::int32_t phase = 0;

private:
    std::string Decoded(std::string_view value);
    static bool EndsInDigit(std::string_view value)
    {
        return !value.empty() && value.back() >= '0' && value.back() <= '9';
    }
    double LookAtReal(std::string_view value, double real);
    void LookAtZero(std::string_view value);
    void Cut()
    {
        m_isCut = true;
        SkipFields();
    }

    template <class Record, std::size_t count>
    void Store(Record& record, const FieldTable<Record, count>& table, std::uint64_t& seen)
    {
        const std::size_t index = table.Index(Code());
        if (index == 0)
            return;
        const Field<Record>& field = table.At(index);
        if (field.isFirst) [[unlikely]] {
            const std::uint64_t bit = std::uint64_t{1} << (index & 63);
            if ((seen & bit) != 0)
                return;
            seen |= bit;
        }
        StoreValue(record, field);
    }

    template <class Record>
    void StoreValue(Record& record, const Field<Record>& field);

    PairReader m_pairs;
    Report* m_report;
    bool m_hasEncoding; // given by the caller, so what the file says does not count
    std::unique_ptr<NamedCodePage> m_codePage;
    std::string m_word;
    bool m_isOtherPage = false; // the file says that its texts are not UTF-8
    bool m_mustGuess = false;   // nobody says in which code page the texts are
    bool m_isAgain = false;
    bool m_hasPair = false;
    Fault m_fault = Fault::None;
    bool m_hasWord = false;
    bool m_isCut = false;
};

// A row that steps over groups.
template <class Record>
void SkipGroup(RecordReader& reader, Record&, CDxfLine)
{
    reader.SkipGroup();
}

template <class Record>
void RecordReader::StoreValue(Record& record, const Field<Record>& field)
{
    const CDxfLine value = Value();
    if constexpr (requires { Record::kHasFunctionsOnly; }) {
        if (field.kind == FieldKind::Function)
            field.function(*this, record, value);
        return;
    }
    if (field.flag != nullptr)
        record.*field.flag = true;
    switch (field.kind) {
    case FieldKind::None:
        break;
    case FieldKind::Real:
        record.*field.real = Real(value);
        break;
    case FieldKind::Reals:
        Append(record.*field.reals, Real(value));
        break;
    case FieldKind::Integer:
        record.*field.integer = Integer(value);
        break;
    case FieldKind::Integers:
        Append(record.*field.integers, Integer(value));
        break;
    case FieldKind::X:
        (record.*field.point).x = Real(value);
        break;
    case FieldKind::Y:
        (record.*field.point).y = Real(value);
        break;
    case FieldKind::Z:
        (record.*field.point).z = Real(value);
        break;
    case FieldKind::PartX:
        field.pointOf(record).x = Real(value);
        break;
    case FieldKind::PartY:
        field.pointOf(record).y = Real(value);
        break;
    case FieldKind::PartZ:
        field.pointOf(record).z = Real(value);
        break;
    case FieldKind::FlatX:
        (record.*field.flatPoint).x = Real(value);
        break;
    case FieldKind::FlatY:
        (record.*field.flatPoint).y = Real(value);
        break;
    case FieldKind::NewX:
        Append(record.*field.points, Point3{Real(value), 0, 0});
        break;
    case FieldKind::LastY:
        if (!(record.*field.points).empty())
            (record.*field.points).back().y = Real(value);
        break;
    case FieldKind::LastZ:
        if (!(record.*field.points).empty())
            (record.*field.points).back().z = Real(value);
        break;
    case FieldKind::NewFlatX:
        Append(record.*field.flatPoints, Point2{Real(value), 0});
        break;
    case FieldKind::LastFlatY:
        if (!(record.*field.flatPoints).empty())
            (record.*field.flatPoints).back().y = Real(value);
        break;
    case FieldKind::Name:
        record.*field.name = Name(value);
        break;
    case FieldKind::HandleOf:
        record.*field.handle = ReadHandle(value);
        break;
    case FieldKind::HandlesOf:
        Append(record.*field.handles, ReadHandle(value));
        break;
    case FieldKind::Text:
        record.*field.text = Text(value);
        break;
    case FieldKind::Texts:
        AppendText(record.*field.text, value);
        break;
    case FieldKind::Function:
        field.function(*this, record, value);
        break;
    }
}

} // namespace prepare
