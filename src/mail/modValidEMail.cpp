#include "modValidEMail.h"

#include <QStringList>

#include <algorithm>

namespace {

// Fixed on purpose: any other ending is taken for a typing error.
constexpr QStringView topLevelDomains =
    u" "
    u"COM ORG NET EDU GOV MIL INT AF AL DZ AS AD AO AI AQ AG AR AM AW AC AU AT AZ BS BH BD BB BY BZ BT BJ "
    u"BE BM BO BA BW BV BR IO BN BG BF BI KH CM CA CV KY CF TD CL CN CX CC CO KM CD CG CK CR CI HR CU CY "
    u"CZ DK DJ DM DO TP EC EG SV GQ ER EE ET FK FO FJ FI FR GF PF TF GA GM GE DE GH GI GR GL GD GP GU GT "
    u"GG GN GW GY HT HM VA HN HK HU IS IN ID IR IQ IE IM IL IT JM JP JE JO KZ KE KI KP KR KW KG LA LV LB "
    u"LS LR LY LI LT LU MO MK MG MW MY MV ML MT MH MQ MR MU YT MX FM MD MC MN MS MA MZ MM NA NR NP NL AN "
    u"NC NZ NI NE NG NU NF MP NO OM PK PW PA PG PY PE PH PN PL PT PR QA RE RO RU RW KN LC VC WS SM ST SA "
    u"SN SC SL SG SK SI SB SO ZA GS ES LK SH PM SD SR SJ SZ SE CH SY TW TJ TZ TH TG TK TO TT TN TR TM TC "
    u"TV UG UA AE GB US UM UY UZ VU VE VN VG VI WF EH YE YU ZR ZM ZW UK ";

constexpr QStringView illegalCharacters = u"!#$%^&*()=+{}[]|\\;:'/?>,< ";

// A control character could start a command of its own in the session; a quote ends the address for some readers.
bool isRefused(QChar character) {
    return illegalCharacters.contains(character) || character == u'"' || character.category() == QChar::Other_Control;
}

bool isNumber(const QString& part) {
    return !part.isEmpty() &&
           std::all_of(part.begin(), part.end(), [](QChar digit) { return digit >= u'0' && digit <= u'9'; });
}

bool isOctet(const QString& part) {
    bool fits = false;
    return part.toUInt(&fits) <= 255 && fits;
}

bool isValidDomain(const QString& domain) {
    const QStringList parts = domain.split(u'.');
    if (parts.size() < 2)
        return false;
    if (parts.size() == 4 && std::all_of(parts.begin(), parts.end(), isNumber))
        return std::all_of(parts.begin(), parts.end(), isOctet);
    return topLevelDomains.contains(QString(u' ' + parts.last() + u' '));
}

QStringView withoutOuterBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

bool modValidEMail::IsValidEmailAddress(const QString& address) {
    const QStringView text = withoutOuterBlanks(address);
    if (text.isEmpty() || std::any_of(text.begin(), text.end(), isRefused))
        return false;
    const qsizetype at = text.indexOf(u'@');
    if (at < 1)
        return false;
    const QStringView domain = text.mid(at + 1);
    return !domain.contains(u'@') && isValidDomain(domain.toString().toUpper());
}
