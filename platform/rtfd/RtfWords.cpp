// SPDX-License-Identifier: MIT
#include "platform/rtfd/RtfWords.h"

#include <QHash>

namespace platform {

namespace {

struct NamedWord {
    const char* name;
    RtfWord word;
};

constexpr NamedWord namedWords[] = {
    {"b", RtfWord::B}, {"i", RtfWord::I}, {"f", RtfWord::F}, {"fs", RtfWord::Fs},
    {"fsmilli", RtfWord::Fsmilli}, {"cf", RtfWord::Cf}, {"cb", RtfWord::Cb},
    {"chcbpat", RtfWord::Chcbpat}, {"highlight", RtfWord::Highlight}, {"ul", RtfWord::Ul},
    {"uld", RtfWord::Ul}, {"uldash", RtfWord::Ul}, {"uldashd", RtfWord::Ul}, {"uldashdd", RtfWord::Ul},
    {"ulw", RtfWord::Ul}, {"ulwave", RtfWord::Ul}, {"ulldash", RtfWord::Ul}, {"ulhwave", RtfWord::Ul},
    {"ulnone", RtfWord::Ulnone}, {"uldb", RtfWord::Uldb}, {"ululdbwave", RtfWord::Uldb},
    {"ulth", RtfWord::Ulth}, {"ulthd", RtfWord::Ulth}, {"ulthdash", RtfWord::Ulth},
    {"ulthdashd", RtfWord::Ulth}, {"ulthdashdd", RtfWord::Ulth}, {"ulthldash", RtfWord::Ulth},
    {"ulc", RtfWord::Ulc}, {"ulstyle", RtfWord::Ulstyle}, {"strike", RtfWord::Strike},
    {"striked", RtfWord::Striked}, {"strikedl", RtfWord::Striked}, {"strikec", RtfWord::Strikec},
    {"strikestyle", RtfWord::Strikestyle}, {"super", RtfWord::Super}, {"sub", RtfWord::Sub},
    {"nosupersub", RtfWord::Nosupersub}, {"up", RtfWord::Up}, {"dn", RtfWord::Dn},
    {"expnd", RtfWord::Expnd}, {"expndtw", RtfWord::Expndtw}, {"plain", RtfWord::Plain},
    {"deff", RtfWord::Deff}, {"pard", RtfWord::Pard}, {"ql", RtfWord::Ql}, {"qr", RtfWord::Qr},
    {"qc", RtfWord::Qc}, {"qj", RtfWord::Qj}, {"qnatural", RtfWord::Qnatural}, {"li", RtfWord::Li},
    {"fi", RtfWord::Fi}, {"ri", RtfWord::Ri}, {"sb", RtfWord::Sb}, {"sa", RtfWord::Sa},
    {"sl", RtfWord::Sl}, {"slmult", RtfWord::Slmult}, {"slleading", RtfWord::Slleading},
    {"slmaximum", RtfWord::Slmaximum}, {"slminimum", RtfWord::Slminimum}, {"tx", RtfWord::Tx},
    {"tqr", RtfWord::Tqr}, {"tqc", RtfWord::Tqc}, {"tqdec", RtfWord::Tqdec}, {"tb", RtfWord::Tb},
    {"pardeftab", RtfWord::Pardeftab}, {"pardirnatural", RtfWord::Pardirnatural},
    {"rtlpar", RtfWord::Rtlpar}, {"ltrpar", RtfWord::Ltrpar}, {"outlinelevel", RtfWord::Outlinelevel},
    {"hyphpar", RtfWord::Hyphpar}, {"ls", RtfWord::Ls}, {"ilvl", RtfWord::Ilvl},
    {"intbl", RtfWord::Intbl}, {"itap", RtfWord::Itap}, {"trowd", RtfWord::Trowd},
    {"cellx", RtfWord::Cellx}, {"cell", RtfWord::Cell}, {"row", RtfWord::Row},
    {"nestcell", RtfWord::Nestcell}, {"nestrow", RtfWord::Nestrow}, {"lastrow", RtfWord::Lastrow},
    {"taflags", RtfWord::Taflags}, {"trgaph", RtfWord::Trgaph}, {"trcbpat", RtfWord::Trcbpat},
    {"trwWidth", RtfWord::TrwWidth}, {"trftsWidth", RtfWord::TrftsWidth}, {"clmgf", RtfWord::Clmgf},
    {"clmrg", RtfWord::Clmrg}, {"clvmgf", RtfWord::Clvmgf}, {"clvmrg", RtfWord::Clvmrg},
    {"clvertalt", RtfWord::Clvertalt}, {"clvertalc", RtfWord::Clvertalc},
    {"clvertalb", RtfWord::Clvertalb}, {"clvertalbl", RtfWord::Clvertalbl},
    {"clshdrawnil", RtfWord::Clshdrawnil}, {"clcbpat", RtfWord::Clcbpat}, {"clwWidth", RtfWord::ClwWidth},
    {"clftsWidth", RtfWord::ClftsWidth}, {"clheight", RtfWord::Clheight}, {"clmart", RtfWord::Clmart},
    {"clmarl", RtfWord::Clmarl}, {"clmarb", RtfWord::Clmarb}, {"clmarr", RtfWord::Clmarr},
    {"clbrdrt", RtfWord::Clbrdrt}, {"clbrdrl", RtfWord::Clbrdrl}, {"clbrdrb", RtfWord::Clbrdrb},
    {"clbrdrr", RtfWord::Clbrdrr}, {"clpadt", RtfWord::Clpadt}, {"clpadl", RtfWord::Clpadl},
    {"clpadb", RtfWord::Clpadb}, {"clpadr", RtfWord::Clpadr}, {"brdrs", RtfWord::Brdrs},
    {"brdrth", RtfWord::Brdrs}, {"brdrdb", RtfWord::Brdrs}, {"brdrdot", RtfWord::Brdrs},
    {"brdrdash", RtfWord::Brdrs}, {"brdrdashd", RtfWord::Brdrs}, {"brdrdashdd", RtfWord::Brdrs},
    {"brdrtriple", RtfWord::Brdrs}, {"brdrhair", RtfWord::Brdrs}, {"brdrthtnsg", RtfWord::Brdrs},
    {"brdrtnthsg", RtfWord::Brdrs}, {"brdrthtnmg", RtfWord::Brdrs}, {"brdrtnthmg", RtfWord::Brdrs},
    {"brdrthtnlg", RtfWord::Brdrs}, {"brdrtnthlg", RtfWord::Brdrs}, {"brdrwavy", RtfWord::Brdrs},
    {"brdremboss", RtfWord::Brdrs}, {"brdrengrave", RtfWord::Brdrs}, {"brdrinset", RtfWord::Brdrs},
    {"brdroutset", RtfWord::Brdrs}, {"brdrsh", RtfWord::Brdrs}, {"brdrnil", RtfWord::Brdrnil},
    {"brdrnone", RtfWord::Brdrnil}, {"brdrw", RtfWord::Brdrw}, {"brdrcf", RtfWord::Brdrcf},
    {"trbrdrt", RtfWord::OtherBorder}, {"trbrdrl", RtfWord::OtherBorder},
    {"trbrdrb", RtfWord::OtherBorder}, {"trbrdrr", RtfWord::OtherBorder},
    {"trbrdrh", RtfWord::OtherBorder}, {"trbrdrv", RtfWord::OtherBorder}, {"brdrt", RtfWord::OtherBorder},
    {"brdrl", RtfWord::OtherBorder}, {"brdrb", RtfWord::OtherBorder}, {"brdrr", RtfWord::OtherBorder},
    {"brdrbtw", RtfWord::OtherBorder}, {"brdrbar", RtfWord::OtherBorder}, {"box", RtfWord::OtherBorder},
    {"chbrdr", RtfWord::OtherBorder}, {"pgbrdrt", RtfWord::OtherBorder},
    {"pgbrdrl", RtfWord::OtherBorder}, {"pgbrdrb", RtfWord::OtherBorder},
    {"pgbrdrr", RtfWord::OtherBorder}, {"cldglu", RtfWord::OtherBorder}, {"cldgll", RtfWord::OtherBorder},
    {"par", RtfWord::Par}, {"line", RtfWord::Line}, {"lbr", RtfWord::Line}, {"page", RtfWord::Page},
    {"sect", RtfWord::Sect}, {"tab", RtfWord::Tab}, {"emdash", RtfWord::Emdash},
    {"endash", RtfWord::Endash}, {"emspace", RtfWord::Emspace}, {"enspace", RtfWord::Enspace},
    {"qmspace", RtfWord::Qmspace}, {"bullet", RtfWord::Bullet}, {"lquote", RtfWord::Lquote},
    {"rquote", RtfWord::Rquote}, {"ldblquote", RtfWord::Ldblquote}, {"rdblquote", RtfWord::Rdblquote},
    {"ltrmark", RtfWord::Ltrmark}, {"rtlmark", RtfWord::Rtlmark}, {"zwj", RtfWord::Zwj},
    {"zwnj", RtfWord::Zwnj}, {"ansi", RtfWord::Ansi}, {"mac", RtfWord::Mac}, {"pc", RtfWord::Pc},
    {"pca", RtfWord::Pca}, {"ansicpg", RtfWord::Ansicpg}, {"cocoartf", RtfWord::Cocoartf},
    {"uc", RtfWord::Uc}, {"u", RtfWord::U}, {"paperw", RtfWord::Paperw}, {"paperh", RtfWord::Paperh},
    {"margl", RtfWord::Margl}, {"margr", RtfWord::Margr}, {"margt", RtfWord::Margt},
    {"margb", RtfWord::Margb}, {"vieww", RtfWord::Vieww}, {"viewh", RtfWord::Viewh},
    {"viewkind", RtfWord::Viewkind}, {"viewscale", RtfWord::Viewscale}, {"deftab", RtfWord::Deftab},
    {"hyphfactor", RtfWord::Hyphfactor}, {"fonttbl", RtfWord::Fonttbl}, {"colortbl", RtfWord::Colortbl},
    {"expandedcolortbl", RtfWord::Expandedcolortbl}, {"listtable", RtfWord::Listtable},
    {"listoverridetable", RtfWord::Listoverridetable}, {"info", RtfWord::Info},
    {"background", RtfWord::Background}, {"fldinst", RtfWord::Fldinst}, {"field", RtfWord::Field},
    {"fldrslt", RtfWord::Fldrslt}, {"NeXTGraphic", RtfWord::NeXTGraphic}, {"pict", RtfWord::Pict},
    {"shppict", RtfWord::Shppict}, {"listtext", RtfWord::Listtext}, {"pntext", RtfWord::Pntext},
    {"pn", RtfWord::Pn}, {"nesttableprops", RtfWord::Nesttableprops}, {"stylesheet", RtfWord::Skipped},
    {"header", RtfWord::Skipped}, {"headerl", RtfWord::Skipped}, {"headerr", RtfWord::Skipped},
    {"headerf", RtfWord::Skipped}, {"footer", RtfWord::Skipped}, {"footerl", RtfWord::Skipped},
    {"footerr", RtfWord::Skipped}, {"footerf", RtfWord::Skipped}, {"footnote", RtfWord::Skipped},
    {"nonesttables", RtfWord::Skipped}, {"filetbl", RtfWord::Skipped}, {"revtbl", RtfWord::Skipped},
    {"rsidtbl", RtfWord::Skipped}, {"private", RtfWord::Skipped}, {"privateA", RtfWord::Skipped},
    {"xe", RtfWord::Skipped}, {"tc", RtfWord::Skipped}, {"rxe", RtfWord::Skipped},
    {"nonshppict", RtfWord::Skipped}, {"shp", RtfWord::Skipped}, {"annotation", RtfWord::Skipped},
    {"atnid", RtfWord::Skipped}, {"bkmkstart", RtfWord::Skipped}, {"bkmkend", RtfWord::Skipped},
    {"do", RtfWord::Skipped}, {"pntxta", RtfWord::Skipped}, {"pntxtb", RtfWord::Skipped},
    {"ftnsep", RtfWord::Skipped}, {"ftnsepc", RtfWord::Skipped}, {"ftncn", RtfWord::Skipped},
    {"aftnsep", RtfWord::Skipped}, {"aftnsepc", RtfWord::Skipped}, {"aftncn", RtfWord::Skipped},
    {"template", RtfWord::Skipped}, {"generator", RtfWord::Skipped}, {"xmlnstbl", RtfWord::Skipped},
    {"latentstyles", RtfWord::Skipped}, {"themedata", RtfWord::Skipped},
    {"colorschememapping", RtfWord::Skipped}, {"datastore", RtfWord::Skipped},
    {"pgdsctbl", RtfWord::Skipped}, {"objdata", RtfWord::Skipped}, {"fname", RtfWord::Skipped},
    {"formfield", RtfWord::Skipped},
};

} // namespace

RtfWord rtfWordNamed(QByteArrayView name)
{
    static const QHash<QByteArrayView, RtfWord> words = [] {
        QHash<QByteArrayView, RtfWord> known;
        for (const NamedWord& named : namedWords)
            known.insert(named.name, named.word);
        return known;
    }();
    return words.value(name, RtfWord::Unknown);
}

} // namespace platform
