<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="el_GR" sourcelanguage="en">
<context>
    <name>QFileDialog</name>
    <message>
        <source>Back</source>
        <translation>Πίσω</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Άνοιγμα</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Άνοιγμα</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Αποθήκευση</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Αρχεία</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>Το «%1» προστατεύεται από εγγραφή.
Θέλετε να διαγραφεί παρ’ όλα αυτά;</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Θέλετε σίγουρα να διαγραφεί το «%1»;</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Κατάλογος θέσεων και σελιδοδεικτών</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Ό&amp;νομα αρχείου:</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Διαγραφή</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Νέος φάκελος</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Γονικός φάκελος</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Νέος φάκελος</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Αφαίρεση</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Αναζήτηση σε:</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Δημιουργία νέου φακέλου</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Αρχεία τύπου:</translation>
    </message>
    <message>
        <source>Find Directory</source>
        <translation>Εύρεση φακέλου</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Εμφάνιση &amp;κρυφών αρχείων</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Αποθήκευση ως</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Ο φάκελος δεν βρέθηκε.
Ελέγξτε ότι δώσατε το σωστό όνομα φακέλου.</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Πλευρική στήλη</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Προβολή λίστας</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Επιλογή</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Διαγραφή</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Όλα τα αρχεία (*)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Όλα τα αρχεία (*)</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>Φάκελοι</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Μετονομασία</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Ο φάκελος δεν ήταν δυνατό να διαγραφεί.</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Φάκελος:</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>Το %1 υπάρχει ήδη.
Θέλετε να αντικατασταθεί;</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Εμπρός</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Μετάβαση εμπρός</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Μετάβαση στον γονικό φάκελο</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Πρόσφατες θέσεις</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Μετάβαση πίσω</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Αλλαγή σε προβολή λεπτομερειών</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Δημιουργία νέου φακέλου</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Προβολή λεπτομερειών</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Το αρχείο δεν βρέθηκε.
Ελέγξτε ότι δώσατε το σωστό όνομα αρχείου.</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Αλλαγή σε προβολή λίστας</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Kind</source>
        <translation>Είδος</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Όνομα</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Μέγεθος</translation>
    </message>
    <message>
        <source>Type</source>
        <comment>All other platforms</comment>
        <translation>Τύπος</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Ο υπολογιστής μου</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Υπολογιστής</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Ημερομηνία τροποποίησης</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>File</source>
        <translation>Αρχείο</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Ψευδώνυμο</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Μονάδα δίσκου</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Φάκελος αρχείων</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Φάκελος</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Άγνωστο</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Συντόμευση</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Show Details...</source>
        <translation>Εμφάνιση λεπτομερειών...</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Απόκρυψη λεπτομερειών...</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Σχετικά με το Qt</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>Εντάξει</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Όχι</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ναι</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Βοήθεια</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Άνοιγμα</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Αποθήκευση</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Διακοπή</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Εφαρμογή</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Κλείσιμο</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Επαναφορά</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Νέα προσπάθεια</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Επαναφορά προεπιλογών</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Άκυρο</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Παράβλεψη</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>Ό&amp;χι σε όλα</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Αποθήκευση όλων</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Απόρριψη</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Ναι σε ό&amp;λα</translation>
    </message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Εντάξει</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Αποθήκευση</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Κλείσιμο</translation>
    </message>
    <message>
        <source>Close without Saving</source>
        <translation>Κλείσιμο χωρίς αποθήκευση</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Άκυρο</translation>
    </message>
</context>
<context>
    <name>QDialogButtonBox</name>
    <message>
        <source>OK</source>
        <translation>Εντάξει</translation>
    </message>
</context>
<context>
    <name>QProgressDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Άκυρο</translation>
    </message>
</context>
<context>
    <name>QInputDialog</name>
    <message>
        <source>Enter a value:</source>
        <translation>Δώστε μια τιμή:</translation>
    </message>
</context>
<context>
    <name>QDialog</name>
    <message>
        <source>What's This?</source>
        <translation>Τι είναι αυτό;</translation>
    </message>
</context>
<context>
    <name>QWhatsThisAction</name>
    <message>
        <source>What's This?</source>
        <translation>Τι είναι αυτό;</translation>
    </message>
</context>
<context>
    <name>QErrorMessage</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Εντάξει</translation>
    </message>
    <message>
        <source>Fatal Error:</source>
        <translation>Μοιραίο σφάλμα:</translation>
    </message>
    <message>
        <source>&amp;Show this message again</source>
        <translation>&amp;Να εμφανίζεται ξανά αυτό το μήνυμα</translation>
    </message>
    <message>
        <source>Critical Error:</source>
        <translation>Κρίσιμο σφάλμα:</translation>
    </message>
    <message>
        <source>Information:</source>
        <translation>Πληροφορία:</translation>
    </message>
    <message>
        <source>Debug Message:</source>
        <translation>Μήνυμα αποσφαλμάτωσης:</translation>
    </message>
    <message>
        <source>Warning:</source>
        <translation>Προειδοποίηση:</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>Απο&amp;κοπή</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Αντιγραφή</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Α&amp;κύρωση αναίρεσης</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Αναίρεση</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Επικόλληση</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Διαγραφή</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Επιλογή όλων</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>Απο&amp;κοπή</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Αντιγραφή</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Α&amp;κύρωση αναίρεσης</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Αναίρεση</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Επικόλληση</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Διαγραφή</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Επιλογή όλων</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Αντιγραφή θέσης &amp;συνδέσμου</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>Step &amp;down</source>
        <translation>&amp;Μείωση</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Αύξηση</translation>
    </message>
    <message>
        <source>&amp;Select All</source>
        <translation>&amp;Επιλογή όλων</translation>
    </message>
</context>
<context>
    <name>QUnicodeControlCharacterMenu</name>
    <message>
        <source>Insert Unicode control character</source>
        <translation>Εισαγωγή χαρακτήρα ελέγχου Unicode</translation>
    </message>
    <message>
        <source>LRM Left-to-right mark</source>
        <translation>LRM Σήμανση από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>RLM Right-to-left mark</source>
        <translation>RLM Σήμανση από δεξιά προς αριστερά</translation>
    </message>
    <message>
        <source>ZWJ Zero width joiner</source>
        <translation>ZWJ Συνδετικό μηδενικού πλάτους</translation>
    </message>
    <message>
        <source>ZWNJ Zero width non-joiner</source>
        <translation>ZWNJ Μη συνδετικό μηδενικού πλάτους</translation>
    </message>
    <message>
        <source>ZWSP Zero width space</source>
        <translation>ZWSP Κενό μηδενικού πλάτους</translation>
    </message>
    <message>
        <source>LRE Start of left-to-right embedding</source>
        <translation>LRE Αρχή ενσωμάτωσης από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>RLE Start of right-to-left embedding</source>
        <translation>RLE Αρχή ενσωμάτωσης από δεξιά προς αριστερά</translation>
    </message>
    <message>
        <source>LRO Start of left-to-right override</source>
        <translation>LRO Αρχή επιβολής από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>RLO Start of right-to-left override</source>
        <translation>RLO Αρχή επιβολής από δεξιά προς αριστερά</translation>
    </message>
    <message>
        <source>PDF Pop directional formatting</source>
        <translation>PDF Τέλος μορφοποίησης κατεύθυνσης</translation>
    </message>
    <message>
        <source>LRI Left-to-right isolate</source>
        <translation>LRI Απομόνωση από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>RLI Right-to-left isolate</source>
        <translation>RLI Απομόνωση από δεξιά προς αριστερά</translation>
    </message>
    <message>
        <source>FSI First strong isolate</source>
        <translation>FSI Απομόνωση κατά τον πρώτο ισχυρό χαρακτήρα</translation>
    </message>
    <message>
        <source>PDI Pop directional isolate</source>
        <translation>PDI Τέλος απομόνωσης κατεύθυνσης</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>Even Pages</source>
        <translation>Ζυγές σελίδες</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Εκτύπωση</translation>
    </message>
    <message>
        <source>&amp;Options &lt;&lt;</source>
        <translation>&amp;Επιλογές &lt;&lt;</translation>
    </message>
    <message>
        <source>&amp;Options &gt;&gt;</source>
        <translation>&amp;Επιλογές &gt;&gt;</translation>
    </message>
    <message>
        <source>Left to Right, Top to Bottom</source>
        <translation>Από αριστερά προς δεξιά, από πάνω προς τα κάτω</translation>
    </message>
    <message>
        <source>Right to Left, Bottom to Top</source>
        <translation>Από δεξιά προς αριστερά, από κάτω προς τα πάνω</translation>
    </message>
    <message>
        <source>Write PDF file</source>
        <translation>Εγγραφή αρχείου PDF</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Εκτύπωση</translation>
    </message>
    <message>
        <source>Options 'Pages Per Sheet' and 'Page Set' cannot be used together.
Please turn one of those options off.</source>
        <translation>Οι επιλογές «Σελίδες ανά φύλλο» και «Σύνολο σελίδων» δεν μπορούν να χρησιμοποιηθούν μαζί.
Απενεργοποιήστε τη μία από τις δύο.</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to overwrite it?</source>
        <translation>Το %1 υπάρχει ήδη.
Θέλετε να αντικατασταθεί;</translation>
    </message>
    <message>
        <source>Left to Right, Bottom to Top</source>
        <translation>Από αριστερά προς δεξιά, από κάτω προς τα πάνω</translation>
    </message>
    <message>
        <source>Odd Pages</source>
        <translation>Μονές σελίδες</translation>
    </message>
    <message>
        <source>Local file</source>
        <translation>Τοπικό αρχείο</translation>
    </message>
    <message>
        <source>There are conflicts in duplex settings. Do you want to fix them?</source>
        <translation>Οι ρυθμίσεις εκτύπωσης διπλής όψης συγκρούονται. Θέλετε να τις διορθώσετε;</translation>
    </message>
    <message>
        <source>Print to File (PDF)</source>
        <translation>Εκτύπωση σε αρχείο (PDF)</translation>
    </message>
    <message>
        <source>Print To File ...</source>
        <translation>Εκτύπωση σε αρχείο ...</translation>
    </message>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Μη έγκυρος ορισμός σελίδων</translation>
    </message>
    <message>
        <source>%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define ranges and make sure ranges do not intersect with each other.</source>
        <translation>Το %1 δεν είναι γραμμένο σωστά. Χωρίστε τις περιοχές και τις σελίδες με «,», ορίστε τις περιοχές με «-» και φροντίστε να μην επικαλύπτονται μεταξύ τους.</translation>
    </message>
    <message>
        <source>Right to Left, Top to Bottom</source>
        <translation>Από δεξιά προς αριστερά, από πάνω προς τα κάτω</translation>
    </message>
    <message>
        <source>Bottom to Top, Left to Right</source>
        <translation>Από κάτω προς τα πάνω, από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>The 'From' value cannot be greater than the 'To' value.</source>
        <translation>Η τιμή «Από» δεν μπορεί να είναι μεγαλύτερη από την τιμή «Έως».</translation>
    </message>
    <message>
        <source>All Pages</source>
        <translation>Όλες οι σελίδες</translation>
    </message>
    <message>
        <source>Duplex Settings Conflicts</source>
        <translation>Συγκρούσεις ρυθμίσεων διπλής όψης</translation>
    </message>
    <message>
        <source>%1 is a directory.
Please choose a different file name.</source>
        <translation>Το %1 είναι φάκελος.
Επιλέξτε άλλο όνομα αρχείου.</translation>
    </message>
    <message>
        <source>File %1 is not writable.
Please choose a different file name.</source>
        <translation>Στο αρχείο %1 δεν επιτρέπεται η εγγραφή.
Επιλέξτε άλλο όνομα αρχείου.</translation>
    </message>
    <message>
        <source>Bottom to Top, Right to Left</source>
        <translation>Από κάτω προς τα πάνω, από δεξιά προς αριστερά</translation>
    </message>
    <message>
        <source>Top to Bottom, Left to Right</source>
        <translation>Από πάνω προς τα κάτω, από αριστερά προς δεξιά</translation>
    </message>
    <message>
        <source>Top to Bottom, Right to Left</source>
        <translation>Από πάνω προς τα κάτω, από δεξιά προς αριστερά</translation>
    </message>
</context>
<context>
    <name>QPrintPreviewDialog</name>
    <message>
        <source>Print Preview</source>
        <translation>Προεπισκόπηση εκτύπωσης</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Εκτύπωση</translation>
    </message>
    <message>
        <source>Fit page</source>
        <translation>Προσαρμογή στη σελίδα</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Μεγέθυνση</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Οριζόντιος</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Σμίκρυνση</translation>
    </message>
    <message>
        <source>Fit width</source>
        <translation>Προσαρμογή στο πλάτος</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Κατακόρυφος</translation>
    </message>
    <message>
        <source>Page Setup</source>
        <translation>Διαμόρφωση σελίδας</translation>
    </message>
    <message>
        <source>Page setup</source>
        <translation>Διαμόρφωση σελίδας</translation>
    </message>
    <message>
        <source>Show overview of all pages</source>
        <translation>Επισκόπηση όλων των σελίδων</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Πρώτη σελίδα</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Τελευταία σελίδα</translation>
    </message>
    <message>
        <source>Show single page</source>
        <translation>Μία σελίδα</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Εξαγωγή σε PDF</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Προηγούμενη σελίδα</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Επόμενη σελίδα</translation>
    </message>
    <message>
        <source>Show facing pages</source>
        <translation>Αντικριστές σελίδες</translation>
    </message>
</context>
<context>
    <name>QPageSetupWidget</name>
    <message>
        <source>bottom margin</source>
        <translation>κάτω περιθώριο</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Χαρτί</translation>
    </message>
    <message>
        <source>Paper source:</source>
        <translation>Πηγή χαρτιού:</translation>
    </message>
    <message>
        <source>right margin</source>
        <translation>δεξί περιθώριο</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>Περιθώρια</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Προσαρμοσμένο</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Οριζόντιος</translation>
    </message>
    <message>
        <source>Page Layout</source>
        <translation>Διάταξη σελίδας</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Πλάτος:</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Προσανατολισμός</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Κατακόρυφος</translation>
    </message>
    <message>
        <source>Page order:</source>
        <translation>Σειρά σελίδων:</translation>
    </message>
    <message>
        <source>top margin</source>
        <translation>πάνω περιθώριο</translation>
    </message>
    <message>
        <source>left margin</source>
        <translation>αριστερό περιθώριο</translation>
    </message>
    <message>
        <source>Page size:</source>
        <translation>Μέγεθος σελίδας:</translation>
    </message>
    <message>
        <source>Reverse portrait</source>
        <translation>Ανεστραμμένος κατακόρυφος</translation>
    </message>
    <message>
        <source>Millimeters (mm)</source>
        <translation>Χιλιοστά (mm)</translation>
    </message>
    <message>
        <source>Points (pt)</source>
        <translation>Στιγμές (pt)</translation>
    </message>
    <message>
        <source>Pages per sheet:</source>
        <translation>Σελίδες ανά φύλλο:</translation>
    </message>
    <message>
        <source>Inches (in)</source>
        <translation>Ίντσες (in)</translation>
    </message>
    <message>
        <source>Reverse landscape</source>
        <translation>Ανεστραμμένος οριζόντιος</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Ύψος:</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesDialog</name>
    <message>
        <source>Advanced Option Conflicts</source>
        <translation>Συγκρούσεις προχωρημένων επιλογών</translation>
    </message>
    <message>
        <source>Job Options</source>
        <translation>Επιλογές εργασίας</translation>
    </message>
    <message>
        <source>Page Setup Conflicts</source>
        <translation>Συγκρούσεις διαμόρφωσης σελίδας</translation>
    </message>
    <message>
        <source>There are conflicts in some advanced options. Do you want to fix them?</source>
        <translation>Ορισμένες προχωρημένες επιλογές συγκρούονται. Θέλετε να τις διορθώσετε;</translation>
    </message>
    <message>
        <source>There are conflicts in page setup options. Do you want to fix them?</source>
        <translation>Ορισμένες επιλογές διαμόρφωσης σελίδας συγκρούονται. Θέλετε να τις διορθώσετε;</translation>
    </message>
    <message>
        <source>Printer Properties</source>
        <translation>Ιδιότητες εκτυπωτή</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Page</source>
        <translation>Σελίδα</translation>
    </message>
    <message>
        <source>There are conflicts in some options. Please fix them.</source>
        <translation>Ορισμένες επιλογές συγκρούονται. Διορθώστε τις.</translation>
    </message>
    <message>
        <source>Advanced</source>
        <translation>Για προχωρημένους</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>to</source>
        <translation>έως</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Όχι</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Έγχρωμη</translation>
    </message>
    <message>
        <source>Print all</source>
        <translation>Όλες</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Σελίδες</translation>
    </message>
    <message>
        <source>Current Page</source>
        <translation>Τρέχουσα σελίδα</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Επιλογή</translation>
    </message>
    <message>
        <source>Copies</source>
        <translation>Αντίτυπα</translation>
    </message>
    <message>
        <source>Print range</source>
        <translation>Περιοχή εκτύπωσης</translation>
    </message>
    <message>
        <source>Color Mode</source>
        <translation>Χρώμα</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Επιλογές</translation>
    </message>
    <message>
        <source>Output Settings</source>
        <translation>Ρυθμίσεις εξόδου</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Αντίστροφη σειρά</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Αποχρώσεις του γκρι</translation>
    </message>
    <message>
        <source>Collate</source>
        <translation>Συρραφή αντιτύπων</translation>
    </message>
    <message>
        <source>Copies:</source>
        <translation>Αντίτυπα:</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Βιβλιοδεσία στη στενή πλευρά</translation>
    </message>
    <message>
        <source>Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.</source>
        <translation>Δώστε σελίδες ή περιοχές χωρισμένες με κόμματα. Μια περιοχή είναι δύο αριθμοί με παύλα ανάμεσά τους. Π.χ. το 3,5-7,9 τυπώνει τις σελίδες 3, 5, 6, 7 και 9.</translation>
    </message>
    <message>
        <source>Pages from</source>
        <translation>Σελίδες από</translation>
    </message>
    <message>
        <source>Double Sided Printing</source>
        <translation>Εκτύπωση διπλής όψης</translation>
    </message>
    <message>
        <source>Page Set:</source>
        <translation>Σύνολο σελίδων:</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Βιβλιοδεσία στη μακριά πλευρά</translation>
    </message>
</context>
<context>
    <name>QPrintWidget</name>
    <message>
        <source>Type:</source>
        <translation>Τύπος:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Όνομα:</translation>
    </message>
    <message>
        <source>Output &amp;file:</source>
        <translation>&amp;Αρχείο εξόδου:</translation>
    </message>
    <message>
        <source>P&amp;roperties</source>
        <translation>Ι&amp;διότητες</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Προεπισκόπηση</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Εκτυπωτής</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Θέση:</translation>
    </message>
</context>
<context>
    <name>QCupsJobWidget</name>
    <message>
        <source>Job</source>
        <translation>Εργασία</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Τέλος:</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Καμία</translation>
    </message>
    <message>
        <source>Banner Pages</source>
        <translation>Σελίδες διαχωρισμού</translation>
    </message>
    <message>
        <source>Specific Time</source>
        <translation>Συγκεκριμένη ώρα</translation>
    </message>
    <message>
        <source>Billing information:</source>
        <translation>Στοιχεία χρέωσης:</translation>
    </message>
    <message>
        <source>Scheduled printing:</source>
        <translation>Προγραμματισμένη εκτύπωση:</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Αρχή:</translation>
    </message>
    <message>
        <source>Job Control</source>
        <translation>Έλεγχος εργασίας</translation>
    </message>
    <message>
        <source>Hold Indefinitely</source>
        <translation>Αναμονή επ’ αόριστον</translation>
    </message>
    <message>
        <source>Print Immediately</source>
        <translation>Άμεση εκτύπωση</translation>
    </message>
    <message>
        <source>Job priority:</source>
        <translation>Προτεραιότητα εργασίας:</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Τυπική</translation>
    </message>
</context>
<context>
    <name>QPageSize</name>
    <message>
        <source>Custom</source>
        <translation>Προσαρμοσμένο</translation>
    </message>
    <message>
        <source>Custom (%1mm x %2mm)</source>
        <translation>Προσαρμοσμένο (%1mm x %2mm)</translation>
    </message>
    <message>
        <source>Custom (%1in x %2in)</source>
        <translation>Προσαρμοσμένο (%1in x %2in)</translation>
    </message>
    <message>
        <source>Custom (%1pt x %2pt)</source>
        <translation>Προσαρμοσμένο (%1pt x %2pt)</translation>
    </message>
</context>
</TS>
