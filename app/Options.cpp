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
  return o;
}
