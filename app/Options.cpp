#include "Options.h"

#include <cstdio>

const char* const kUsage =
    "Χρήση: ravolinette [ΕΠΙΛΟΓΕΣ]\n"
    "Υπολογισμοί μονοσωλήνιου συστήματος κεντρικής θέρμανσης.\n"
    "\n"
    "  --home DIR       ο φάκελος του προγράμματος (αρχεία εργασίας, καταλόγοι, RVLFiles/)\n"
    "                   αλλιώς $RAVOLINETTE_HOME, αλλιώς ~/.local/share/ravolinette\n"
    "  --script FILE    εκτέλεση σεναρίου χωρίς οθόνη (έλεγχοι αποδοχής)\n"
    "  --screen WxH     η ανάλυση οθόνης που υποθέτει ένα σενάριο (προεπιλογή 1024x768)\n"
    "  --recalculate STUDY.sht\n"
    "                   επανυπολογισμός όλων των φύλλων μιας μελέτης, χωρίς οθόνη· αναφορά\n"
    "                   ανά φύλλο (κατάσταση εξόδου 0 όλα υπολογίστηκαν, 1 κάποιο φύλλο όχι,\n"
    "                   2 η μελέτη δεν διαβάζεται)\n"
    "  --json           η αναφορά του επανυπολογισμού σε JSON, με αριθμούς\n"
    "  --write          η μελέτη που επανυπολογίστηκε αποθηκεύεται στη θέση της\n"
    "  --help           αυτό το κείμενο\n";

Options ParseOptions(const std::vector<std::string>& args) {
  Options o;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    auto value = [&](std::optional<std::string>& into) {
      if (i + 1 >= args.size()) {
        o.Error = "λείπει η τιμή της επιλογής " + a;
        return;
      }
      into = args[++i];
    };
    if (a == "--help" || a == "-h") {
      o.Help = true;
    } else if (a == "--home") {
      value(o.Home);
    } else if (a == "--script") {
      value(o.Script);
    } else if (a == "--recalculate") {
      value(o.Recalculate);
    } else if (a == "--json") {
      o.Json = true;
    } else if (a == "--write") {
      o.Write = true;
    } else if (a == "--screen") {
      std::optional<std::string> size;
      value(size);
      if (size && std::sscanf(size->c_str(), "%dx%d", &o.ScreenWidth, &o.ScreenHeight) != 2)
        o.Error = "μη αποδεκτή ανάλυση οθόνης: " + *size;
    } else {
      o.Error = "άγνωστη επιλογή: " + a;
    }
    if (!o.Error.empty()) break;
  }
  if (o.Error.empty() && (o.Json || o.Write) && !o.Recalculate)
    o.Error = "οι επιλογές --json και --write συνοδεύουν την --recalculate";
  if (o.Error.empty() && o.Recalculate && o.Script)
    o.Error = "οι επιλογές --recalculate και --script δεν συνδυάζονται";
  return o;
}
