<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>EpicsText</name>
    <message>
        <source>the Channel Access client library (libca) was not found; install the package libca4.13.5, or set EPICS_BASE to the folder of an installation</source>
        <translation>die Client-Bibliothek für Channel Access (libca) wurde nicht gefunden; das Paket libca4.13.5 installieren oder EPICS_BASE auf den Ordner einer Installation setzen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be ca:NAME or ca:NAME,NAME with names of process variables</source>
        <translation>„%1“ sollte ca:NAME oder ca:NAME,NAME mit Namen von Prozessvariablen sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 process variables; a window shows %3 at most</source>
        <translation>„%1“ nennt %2 Prozessvariablen; ein Fenster zeigt höchstens %3</translation>
    </message>
    <message>
        <source>Check the names, that the server runs, and EPICS_CA_ADDR_LIST if it is on another network; caget NAME shows whether this machine reaches it.</source>
        <translation>Prüfen, ob die Namen stimmen und ob der Server läuft, und EPICS_CA_ADDR_LIST, wenn er in einem anderen Netz ist; caget NAME zeigt, ob dieser Rechner ihn erreicht.</translation>
    </message>
    <message>
        <source>the Channel Access client library does not start</source>
        <translation>die Client-Bibliothek für Channel Access startet nicht</translation>
    </message>
    <message>
        <source>%1: waveforms and single values cannot be read together, and no more than two waveforms; read the others in a window of their own</source>
        <translation>%1: Wellenformen und Einzelwerte können nicht zusammen gelesen werden, und höchstens zwei Wellenformen; die anderen in einem eigenen Fenster lesen</translation>
    </message>
    <message>
        <source>searching for %1</source>
        <translation>%1 wird gesucht</translation>
    </message>
    <message>
        <source>%1, without %2, which is not connected</source>
        <translation>%1, ohne %2; nicht verbunden</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>kein Server antwortet für %1</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 hat %2 Werte; ein Fenster zeigt höchstens %3</translation>
    </message>
    <message>
        <source>%1 is not a Channel Access client library that can be used</source>
        <translation>%1 ist keine brauchbare Client-Bibliothek für Channel Access</translation>
    </message>
</context>
<context>
    <name>Monitor::AddSourceAction</name>
    <message>
        <source>&amp;Add source...</source>
        <translation>Quelle &amp;hinzufügen ...</translation>
    </message>
    <message>
        <source>Add source</source>
        <translation>Quelle hinzufügen</translation>
    </message>
</context>
<context>
    <name>Monitor::Appearance</name>
    <message>
        <source>Appea&amp;rance</source>
        <translation>A&amp;ussehen</translation>
    </message>
    <message>
        <source>As the des&amp;ktop</source>
        <translation>&amp;Wie der Desktop</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
</context>
<context>
    <name>Monitor::Baseline</name>
    <message>
        <source>ZEROED</source>
        <translation>GENULLT</translation>
    </message>
    <message>
        <source>BACKGROUND SUBTRACTED</source>
        <translation>UNTERGRUND ABGEZOGEN</translation>
    </message>
</context>
<context>
    <name>Monitor::BigNumbers</name>
    <message>
        <source>Big numbers - Corvale Monitor</source>
        <translation>Große Zahlen - Corvale Monitor</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>Beam: position and width</source>
        <translation>Strahl: Lage und Breite</translation>
    </message>
    <message>
        <source>No readings</source>
        <translation>Keine Messwerte</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Strahl</translation>
    </message>
    <message>
        <source>no valid data</source>
        <translation>keine gültigen Daten</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULIERT</translation>
    </message>
    <message>
        <source>PAUSED</source>
        <translation>ANGEHALTEN</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>VERALTET</translation>
    </message>
    <message>
        <source>END</source>
        <translation>ENDE</translation>
    </message>
</context>
<context>
    <name>Monitor::ClearUndo</name>
    <message>
        <source>&amp;Undo clear</source>
        <translation>&amp;Löschen rückgängig</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Zurückholen</translation>
    </message>
</context>
<context>
    <name>Monitor::CommonTape</name>
    <message>
        <source>%1 cannot be played together with others: %2. Open it alone to see what can be read of it</source>
        <translation>%1 kann nicht zusammen mit anderen abgespielt werden: %2. Allein geöffnet zeigt die Datei, was davon lesbar ist</translation>
    </message>
    <message>
        <source>none of the recordings can be read; open them one by one to see why</source>
        <translation>keine der Aufzeichnungen ist lesbar; einzeln geöffnet zeigen sie, warum</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPane</name>
    <message>
        <source>The state of this source</source>
        <translation>Der Zustand dieser Quelle</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>%1 schließen</translation>
    </message>
    <message>
        <source>Close this source; its recording ends</source>
        <translation>Diese Quelle schließen; ihre Aufzeichnung endet</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPanes</name>
    <message>
        <source>Closing the source ends its recording. What was recorded stays in %1.</source>
        <translation>Wird die Quelle geschlossen, endet ihre Aufzeichnung. Was aufgezeichnet wurde, bleibt in %1.</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>Aufzeichnung beenden?</translation>
    </message>
</context>
<context>
    <name>Monitor::Companions</name>
    <message>
        <source>%1 is a source; record to another file</source>
        <translation>%1 ist eine Quelle; in eine andere Datei aufzeichnen</translation>
    </message>
</context>
<context>
    <name>Monitor::CompressionWait</name>
    <message>
        <source>Compressing the recording</source>
        <translation>Aufzeichnung wird komprimiert</translation>
    </message>
    <message>
        <source>&amp;Quit without compressing</source>
        <translation>&amp;Ohne Komprimieren beenden</translation>
    </message>
    <message>
        <source>%1 is being compressed. Nothing is lost if you do not wait.</source>
        <translation>%1 wird komprimiert. Auch ohne Warten geht nichts verloren.</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedAction</name>
    <message>
        <source>&amp;Computed channels...</source>
        <translation>Berechnete &amp;Kanäle...</translation>
    </message>
    <message>
        <source>Channels that are computed from others: sums, ratios, positions (Ctrl+K).</source>
        <translation>Kanäle, die aus anderen berechnet werden: Summen, Verhältnisse, Positionen (Strg+K).</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedDialog</name>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>What the channel is called in charts, tables and recordings (Alt+N)</source>
        <translation>Wie der Kanal in Diagrammen, Tabellen und Aufzeichnungen heißt (Alt+N)</translation>
    </message>
    <message>
        <source>The symbol of its unit, such as nA; empty for none (Alt+U)</source>
        <translation>Das Zeichen seiner Einheit, etwa nA; leer für keine (Alt+I)</translation>
    </message>
    <message>
        <source>Computed channels</source>
        <translation>Berechnete Kanäle</translation>
    </message>
    <message>
        <source>There is no stream yet. Whether the expressions make sense is seen when one begins.</source>
        <translation>Noch gibt es keinen Datenstrom. Ob die Ausdrücke passen, zeigt sich, wenn einer beginnt.</translation>
    </message>
    <message>
        <source>The stream has %1. An expression is like (A - B) / (A + B), avg(A, B) or fit_position([left plate] .. D).</source>
        <translation>Der Datenstrom hat %1. Ein Ausdruck ist etwa (A - B) / (A + B), avg(A, B) oder fit_position([left plate] .. D).</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Add a computed channel (Alt+A)</source>
        <translation>Einen berechneten Kanal hinzufügen (Alt+H)</translation>
    </message>
    <message>
        <source>Remove the selected channel (Alt+R)</source>
        <translation>Den gewählten Kanal entfernen (Alt+E)</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>E&amp;inheit:</translation>
    </message>
    <message>
        <source>&amp;Expression:</source>
        <translation>Aus&amp;druck:</translation>
    </message>
    <message>
        <source>+ - * / ^, comparisons, c ? a : b, sum, avg, min, max, sqrt, abs, exp, ln, log10 and others; a name that is not one word stands in brackets (Alt+E)</source>
        <translation>+ - * / ^, Vergleiche, c ? a : b, sum, avg, min, max, sqrt, abs, exp, ln, log10 und andere; ein Name, der kein einzelnes Wort ist, steht in eckigen Klammern (Alt+D)</translation>
    </message>
    <message>
        <source>New channel</source>
        <translation>Neuer Kanal</translation>
    </message>
    <message>
        <source>there would be more than %1 channels</source>
        <translation>es wären mehr als %1 Kanäle</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>a name or a unit cannot have the signs =, [ and ]</source>
        <translation>Namen und Einheiten dürfen die Zeichen =, [ und ] nicht enthalten</translation>
    </message>
    <message>
        <source>This stream has no independent channels, from which others are computed.</source>
        <translation>Dieser Datenstrom hat keine unabhängigen Kanäle, aus denen andere berechnet werden.</translation>
    </message>
</context>
<context>
    <name>Monitor::ConnectDialog</name>
    <message>
        <source>&amp;Keep</source>
        <translation>Be&amp;halten</translation>
    </message>
    <message>
        <source>For&amp;get</source>
        <translation>&amp;Vergessen</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <translation>&amp;Testen</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Test shows the first lines of the source and what they are read as.</source>
        <translation>Testen zeigt die ersten Zeilen der Quelle und wie sie gelesen werden.</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>Ver&amp;binden</translation>
    </message>
    <message>
        <source>Kind of source</source>
        <translation>Art der Quelle</translation>
    </message>
    <message>
        <source>Na&amp;me:</source>
        <translation>Na&amp;me:</translation>
    </message>
    <message>
        <source>Connections that were kept. Type a name and choose Keep to add one.</source>
        <translation>Behaltene Verbindungen. Einen Namen eingeben und Behalten wählen, um eine hinzuzufügen.</translation>
    </message>
    <message>
        <source>a name for this connection, if it is to be kept</source>
        <translation>ein Name für diese Verbindung, falls sie behalten werden soll</translation>
    </message>
    <message>
        <source>On the command line: corvale-monitor &quot;%1&quot;</source>
        <translation>Auf der Befehlszeile: corvale-monitor &quot;%1&quot;</translation>
    </message>
    <message>
        <source>This source is open: its readings are in the window.</source>
        <translation>Diese Quelle ist offen: Ihre Messwerte sind im Fenster.</translation>
    </message>
    <message>
        <source>Fill in the empty field, to test or to connect.</source>
        <translation>Zum Testen oder Verbinden das leere Feld ausfüllen.</translation>
    </message>
</context>
<context>
    <name>Monitor::CrashNotice</name>
    <message>
        <source>It was recording to %1, and the recording ends there.</source>
        <translation>Es zeichnete in %1 auf; die Aufzeichnung endet dort.</translation>
    </message>
    <message>
        <source>It was recording to %1; the recording goes on in %2.</source>
        <translation>Es zeichnete in %1 auf; die Aufzeichnung geht in %2 weiter.</translation>
    </message>
    <message>
        <source>The program crashed at %1 UTC: %2.</source>
        <translation>Das Programm ist um %1 UTC abgestürzt: %2.</translation>
    </message>
    <message>
        <source>The program that was started at %1 UTC did not end properly: it was killed, or the computer stopped.</source>
        <translation>Das Programm, das um %1 UTC gestartet wurde, ist nicht ordentlich beendet worden: Es wurde abgebrochen, oder der Rechner blieb stehen.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Show report</source>
        <translation>Bericht anzeigen</translation>
    </message>
</context>
<context>
    <name>Monitor::DisplayTabs</name>
    <message>
        <source>Scope</source>
        <translation>Scope</translation>
    </message>
    <message>
        <source>2D profile</source>
        <translation>2D-Profil</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Spotkarte</translation>
    </message>
    <message>
        <source>Position errors</source>
        <translation>Positionsfehler</translation>
    </message>
    <message>
        <source>%1; in all layers %2</source>
        <translation>%1; in allen Schichten %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1; %2</translation>
    </message>
</context>
<context>
    <name>Monitor::EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Copy values</source>
        <translation>&amp;Werte kopieren</translation>
    </message>
    <message>
        <source>C&amp;lear readings...</source>
        <translation>&amp;Messwerte löschen...</translation>
    </message>
</context>
<context>
    <name>Monitor::ExportActions</name>
    <message>
        <source>Save rea&amp;dings shown...</source>
        <translation>&amp;Gezeigte Messwerte speichern...</translation>
    </message>
    <message>
        <source>Save readings between &amp;markers...</source>
        <translation>&amp;Messwerte zwischen den Marken speichern...</translation>
    </message>
    <message>
        <source>Save readings</source>
        <translation>Messwerte speichern</translation>
    </message>
    <message>
        <source>Set both markers in the chart first: switch them on (Ctrl+M), then click with the left and with the right button, or press 1 and 2.</source>
        <translation>Zuerst beide Marken im Diagramm setzen: einschalten (Strg+M), dann mit der linken und mit der rechten Taste klicken oder 1 und 2 drücken.</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Saving readings</source>
        <translation>Messwerte werden gespeichert</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Only the strip chart and the scope show readings over time. Choose one of them first.</source>
        <translation>Nur Verlauf und Scope zeigen Messwerte über der Zeit. Zuerst eine der beiden Anzeigen wählen.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 kann nicht geschrieben werden: %2. Eine andere Datei wählen.</translation>
    </message>
</context>
<context>
    <name>Monitor::FileForm</name>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>A recording of this program, a file saved by the library, or a table with a line of names and a line for each time.</source>
        <translation>Eine Aufzeichnung dieses Programms, eine von der Bibliothek gespeicherte Datei oder eine Tabelle mit einer Zeile Namen und einer Zeile für jeden Zeitpunkt.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Choose a recording</source>
        <translation>Aufzeichnung wählen</translation>
    </message>
    <message>
        <source>Tables (*.csv *.txt *.dat);;All files (*)</source>
        <translation>Tabellen (*.csv *.txt *.dat);;Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>Monitor::FileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open recen&amp;t</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Connect...</source>
        <translation>&amp;Verbinden...</translation>
    </message>
    <message>
        <source>C&amp;lose source</source>
        <translation>&amp;Quelle schließen</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>E&amp;instellungen...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Aufzeichnung öffnen</translation>
    </message>
    <message>
        <source>&amp;Forget these</source>
        <translation>&amp;Diese vergessen</translation>
    </message>
    <message>
        <source>Recordings and tables (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;All files (*)</source>
        <translation>Aufzeichnungen und Tabellen (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Read a&amp;gain as...</source>
        <translation>&amp;Neu lesen als...</translation>
    </message>
</context>
<context>
    <name>Monitor::FileSource</name>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>it has names or comments, but no row with numbers</source>
        <translation>sie hat Namen oder Kommentare, aber keine Zeile mit Zahlen</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>Ende von %1 erreicht</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>Lesen von %1 misslungen: %2</translation>
    </message>
    <message>
        <source>The file must be a recording, a table with one line of names and one line for each time, or HDF5.</source>
        <translation>Die Datei muss eine Aufzeichnung, eine Tabelle mit einer Zeile Namen und einer Zeile für jeden Zeitpunkt oder HDF5 sein.</translation>
    </message>
    <message>
        <source>Check the path and whether this user may read the file.</source>
        <translation>Pfad prüfen und ob dieser Benutzer die Datei lesen darf.</translation>
    </message>
    <message>
        <source>nothing of the file can be read</source>
        <translation>nichts in der Datei ist lesbar</translation>
    </message>
</context>
<context>
    <name>Monitor::FirstHint</name>
    <message>
        <source>Do not show again</source>
        <translation>Nicht mehr zeigen</translation>
    </message>
    <message>
        <source>This beam is simulated.</source>
        <translation>Dieser Strahl ist simuliert.</translation>
    </message>
    <message>
        <source>This is %1.</source>
        <translation>Das ist %1.</translation>
    </message>
    <message>
        <source> File &gt; Open... plays a recording, File &gt; Connect... reads an instrument. Space pauses, Ctrl+R records, F1 shows the first steps.</source>
        <translation> Datei &gt; Öffnen... spielt eine Aufzeichnung ab, Datei &gt; Verbinden... liest ein Gerät. Leertaste hält an, Strg+R zeichnet auf, F1 zeigt die ersten Schritte.</translation>
    </message>
</context>
<context>
    <name>Monitor::FrameFeeder</name>
    <message>
        <source>arb. units</source>
        <translation>willk. Einh.</translation>
    </message>
</context>
<context>
    <name>Monitor::HelpMenu</name>
    <message>
        <source># Keys

Alt and the underlined letter open a menu.

| key | what it does |
|---|---|
</source>
        <translation># Tasten

Alt und der unterstrichene Buchstabe öffnen ein Menü.

| Taste | was sie tut |
|---|---|
</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Strg+S</translation>
    </message>
    <message>
        <source>in the scope: saves the readings that are shown</source>
        <translation>im Scope: speichert die gezeigten Messwerte</translation>
    </message>
    <message>
        <source>Left, Right, Delete</source>
        <translation>Links, Rechts, Entf</translation>
    </message>
    <message>
        <source>in the scope: moves or removes the markers</source>
        <translation>im Scope: verschiebt oder entfernt die Marken</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Eingabe</translation>
    </message>
    <message>
        <source>in the values: shows or hides the channel</source>
        <translation>bei den Werten: blendet den Kanal ein oder aus</translation>
    </message>
    <message>
        <source>Page Up, Page Down</source>
        <translation>Bild auf, Bild ab</translation>
    </message>
    <message>
        <source>in the spot map: goes through the layers</source>
        <translation>in der Spotkarte: blättert durch die Schichten</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Strg+Umschalt+O</translation>
    </message>
    <message>
        <source>moves a display into a separate window, or back</source>
        <translation>verschiebt eine Anzeige in ein eigenes Fenster oder zurück</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;First steps</source>
        <translation>&amp;Erste Schritte</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Tasten</translation>
    </message>
    <message>
        <source>&amp;Line protocol</source>
        <translation>&amp;Zeilenprotokoll</translation>
    </message>
    <message>
        <source>L&amp;icences</source>
        <translation>&amp;Lizenzen</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
    <message>
        <source>+, -; with Ctrl</source>
        <translation>+, -; mit Strg</translation>
    </message>
    <message>
        <source>in the scope: zooms time; zooms the values</source>
        <translation>im Scope: zoomt die Zeit; zoomt die Werte</translation>
    </message>
    <message>
        <source>Left, Right, Page Up, Page Down, Up, Down</source>
        <translation>Links, Rechts, Bild auf, Bild ab, Auf, Ab</translation>
    </message>
    <message>
        <source>in the scope: moves the picture</source>
        <translation>im Scope: verschiebt das Bild</translation>
    </message>
    <message>
        <source>Home, End</source>
        <translation>Pos1, Ende</translation>
    </message>
    <message>
        <source>in the scope: the oldest readings, the newest ones</source>
        <translation>im Scope: die ältesten Messwerte, die neuesten</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message>
        <source>in the scope: what was shown before</source>
        <translation>im Scope: was vorher zu sehen war</translation>
    </message>
    <message>
        <source>1, 2</source>
        <translation>1, 2</translation>
    </message>
    <message>
        <source>in the scope: places the markers</source>
        <translation>im Scope: setzt die Marken</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Strg+C</translation>
    </message>
    <message>
        <source>in the scope: copies what the markers read</source>
        <translation>im Scope: kopiert, was die Marken messen</translation>
    </message>
    <message>
        <source>on the time line: plays or pauses the tape</source>
        <translation>auf der Zeitleiste: spielt das Band ab oder hält es an</translation>
    </message>
    <message>
        <source>Left, Right; with Shift</source>
        <translation>Links, Rechts; mit Umschalt</translation>
    </message>
    <message>
        <source>on the time line: 1 % or 10 % of the tape back or on</source>
        <translation>auf der Zeitleiste: 1 % oder 10 % des Bandes zurück oder vor</translation>
    </message>
    <message>
        <source>on the time line: the event or gap before or after</source>
        <translation>auf der Zeitleiste: das Ereignis oder die Lücke davor oder danach</translation>
    </message>
    <message>
        <source>comma, period</source>
        <translation>Komma, Punkt</translation>
    </message>
    <message>
        <source>on the time line: one reading back or on, and pauses</source>
        <translation>auf der Zeitleiste: einen Messwert zurück oder vor, und hält an</translation>
    </message>
    <message>
        <source>[, ], Backspace</source>
        <translation>[, ], Rücktaste</translation>
    </message>
    <message>
        <source>on the time line: repeats from here, up to here, nothing</source>
        <translation>auf der Zeitleiste: wiederholt ab hier, bis hier, nichts</translation>
    </message>
</context>
<context>
    <name>Monitor::HelpWindow</name>
    <message>
        <source>First steps</source>
        <extracomment>The name of the file with this page: first-steps.de.md in German.</extracomment>
        <translation>Erste Schritte</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Line protocol</source>
        <translation>Zeilenprotokoll</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Lizenzen</translation>
    </message>
    <message>
        <source>About Corvale Monitor</source>
        <translation>Über Corvale Monitor</translation>
    </message>
    <message>
        <source>first-steps.md</source>
        <translation>first-steps.de.md</translation>
    </message>
    <message>
        <source># Corvale Monitor %1

Shows the readings of instruments that measure beams of charged particles.

Free software under LGPL-2.1-or-later; *Help &gt; Licences* has the text. It runs on %2.</source>
        <translation># Corvale Monitor %1

Zeigt die Messwerte von Geräten, die Strahlen geladener Teilchen messen.

Freie Software unter LGPL-2.1-or-later; *Hilfe &gt; Lizenzen* enthält den Text. Das Programm läuft auf %2.</translation>
    </message>
    <message>
        <source>| part | version | licence |
|---|---|---|
</source>
        <translation>| Bestandteil | Version | Lizenz |
|---|---|---|
</translation>
    </message>
</context>
<context>
    <name>Monitor::ImportDialog</name>
    <message>
        <source>How is %1 read?</source>
        <translation>Wie wird %1 gelesen?</translation>
    </message>
    <message>
        <source>This table is read as it is.</source>
        <translation>Diese Tabelle wird gelesen, wie sie ist.</translation>
    </message>
    <message>
        <source>This is not a recording of the monitor: %1.</source>
        <translation>Das ist keine Aufzeichnung des Monitors: %1.</translation>
    </message>
    <message>
        <source>&amp;Columns are separated by:</source>
        <translation>Spalten sind &amp;getrennt durch:</translation>
    </message>
    <message>
        <source>commas, or blanks</source>
        <translation>Kommas oder Leerzeichen</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>Kommas</translation>
    </message>
    <message>
        <source>semicolons</source>
        <translation>Semikolons</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <source>blanks</source>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>bars</source>
        <translation>senkrechte Striche</translation>
    </message>
    <message>
        <source>&amp;Decimal sign:</source>
        <translation>D&amp;ezimalzeichen:</translation>
    </message>
    <message>
        <source>point: 1.25</source>
        <translation>Punkt: 1.25</translation>
    </message>
    <message>
        <source>comma: 1,25</source>
        <translation>Komma: 1,25</translation>
    </message>
    <message>
        <source>&amp;Names of columns:</source>
        <translation>&amp;Namen der Spalten:</translation>
    </message>
    <message>
        <source>in the first line, if it is not all numbers</source>
        <translation>in der ersten Zeile, wenn sie nicht nur Zahlen hat</translation>
    </message>
    <message>
        <source>in the first line</source>
        <translation>in der ersten Zeile</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>Zei&amp;t:</translation>
    </message>
    <message>
        <source>Which column holds the time of a row, or that none does</source>
        <translation>Welche Spalte die Zeit einer Zeile enthält, oder dass es keine tut</translation>
    </message>
    <message>
        <source>in the column with such a name</source>
        <translation>in der Spalte, deren Name es sagt</translation>
    </message>
    <message>
        <source>in the column with this number</source>
        <translation>in der Spalte mit dieser Nummer</translation>
    </message>
    <message>
        <source>in no column; rows are equally spaced</source>
        <translation>in keiner Spalte; Zeilen haben gleichen Abstand</translation>
    </message>
    <message>
        <source>Co&amp;lumn of the time:</source>
        <translation>Spalte &amp;der Zeit:</translation>
    </message>
    <message>
        <source>Time &amp;between two rows:</source>
        <translation>Ze&amp;it zwischen zwei Zeilen:</translation>
    </message>
    <message>
        <source>For a table without times, like 1ms, 0.02s or 1min</source>
        <translation>Für eine Tabelle ohne Zeiten, etwa 1ms, 0.02s oder 1min</translation>
    </message>
    <message>
        <source>Times &amp;are:</source>
        <translation>Zeiten &amp;sind:</translation>
    </message>
    <message>
        <source>numbers, in seconds or the unit of the name</source>
        <translation>Zahlen, in Sekunden oder der Einheit im Namen</translation>
    </message>
    <message>
        <source>dates; UTC where no zone is written</source>
        <translation>Datumsangaben; UTC, wo keine Zone steht</translation>
    </message>
    <message>
        <source>dates; local time where no zone is written</source>
        <translation>Datumsangaben; Ortszeit, wo keine Zone steht</translation>
    </message>
    <message>
        <source>&amp;Form of dates:</source>
        <translation>&amp;Format der Datumsangaben:</translation>
    </message>
    <message>
        <source>Empty for ISO 8601 (2026-03-01T12:00:00.5), or like dd.MM.yyyy HH:mm:ss.zzz</source>
        <translation>Leer für ISO 8601 (2026-03-01T12:00:00.5), sonst etwa dd.MM.yyyy HH:mm:ss.zzz</translation>
    </message>
    <message>
        <source>Lines to &amp;skip first:</source>
        <translation>&amp;Zuerst zu überspringende Zeilen:</translation>
    </message>
    <message>
        <source>Co&amp;mments begin with:</source>
        <translation>&amp;Kommentare beginnen mit:</translation>
    </message>
    <message>
        <source>One sign; # always begins one</source>
        <translation>Ein Zeichen; # beginnt immer einen</translation>
    </message>
    <message>
        <source>The first rows as they will be read</source>
        <translation>Die ersten Zeilen, wie sie gelesen werden</translation>
    </message>
    <message>
        <source>Please state the time between two rows, for example 1ms.</source>
        <translation>Bitte die Zeit zwischen zwei Zeilen angeben, etwa 1ms.</translation>
    </message>
    <message>
        <source>It cannot be read this way: %1.</source>
        <translation>So ist sie nicht lesbar: %1.</translation>
    </message>
    <message>
        <source>None of its rows can be read this way; the first is %1</source>
        <translation>Keine Zeile ist so lesbar; die erste ist %1</translation>
    </message>
    <message>
        <source>It contains no rows.</source>
        <translation>Sie enthält keine Zeilen.</translation>
    </message>
    <message>
        <source>%1 of the first lines cannot be read this way; the first is %2</source>
        <translation>%1 der ersten Zeilen sind so nicht lesbar; die erste ist %2</translation>
    </message>
    <message>
        <source>All of the first rows can be read.</source>
        <translation>Alle ersten Zeilen sind lesbar.</translation>
    </message>
    <message>
        <source>All of the first rows can be read. The time 0 is %1 (UTC).</source>
        <translation>Alle ersten Zeilen sind lesbar. Die Zeit 0 ist %1 (UTC).</translation>
    </message>
    <message>
        <source>On the command line: --import &quot;%1&quot;</source>
        <translation>Auf der Befehlszeile: --import &quot;%1&quot;</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. It has no line of names by which others of its kind are known, so the answer holds for this time.</source>
        <translation>Die Tabelle wird von Anfang an neu gelesen. Sie hat keine Zeile mit Namen, an der andere ihrer Art zu erkennen sind; die Antwort gilt deshalb nur dieses Mal.</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. The answer is kept for files with the same header.</source>
        <translation>Die Tabelle wird von Anfang an neu gelesen. Die Antwort wird für Dateien mit derselben Kopfzeile aufbewahrt.</translation>
    </message>
</context>
<context>
    <name>Monitor::LatestValuePanel</name>
    <message>
        <source>&amp;All</source>
        <translation>&amp;Alle</translation>
    </message>
    <message>
        <source>Show all channels</source>
        <translation>Alle Kanäle zeigen</translation>
    </message>
    <message>
        <source>N&amp;one</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>Show no channel</source>
        <translation>Keinen Kanal zeigen</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>Neueste Werte</translation>
    </message>
</context>
<context>
    <name>Monitor::LeadHeading</name>
    <message>
        <source>Of %1, the first source:</source>
        <translation>Für %1, die erste Quelle:</translation>
    </message>
</context>
<context>
    <name>Monitor::LeftOutNotice</name>
    <message>
        <source>the detector is not used: %1; correct its description, or choose another one in File &gt; Settings...</source>
        <translation>der Detektor wird nicht verwendet: %1; seine Beschreibung berichtigen oder in Datei &gt; Einstellungen... einen anderen wählen</translation>
    </message>
    <message>
        <source>not all limits of the stream are used: %1; Measure &gt; Limits sets them here</source>
        <translation>nicht alle Grenzwerte des Datenstroms werden verwendet: %1; Messen &gt; Grenzwerte stellt sie hier ein</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitActions</name>
    <message>
        <source>&amp;Acknowledge alarms</source>
        <translation>Alarme &amp;quittieren</translation>
    </message>
    <message>
        <source>Alarms make a &amp;sound</source>
        <translation>&amp;Alarme mit Ton</translation>
    </message>
    <message>
        <source>&amp;Limits...</source>
        <translation>&amp;Grenzwerte...</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitMarks</name>
    <message>
        <source>ALARM %1</source>
        <translation>ALARM %1</translation>
    </message>
    <message>
        <source>WARN %1</source>
        <translation>WARNUNG %1</translation>
    </message>
    <message>
        <source>%1, above its limit</source>
        <translation>%1, über dem Grenzwert</translation>
    </message>
    <message>
        <source>%1, below its limit</source>
        <translation>%1, unter dem Grenzwert</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitsDialog</name>
    <message>
        <source>Limits</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Limits of each channel</source>
        <translation>Grenzwerte jedes Kanals</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>Alarm unten</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>Warnung unten</translation>
    </message>
    <message>
        <source>High warning</source>
        <translation>Warnung oben</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>Alarm oben</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number with a decimal point</source>
        <translation>„%1“ ist keine Zahl mit Dezimalpunkt</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
    <message>
        <source>Readings beyond a limit are a warning or an alarm. An empty cell means no limit. Numbers have a decimal point.</source>
        <translation>Messwerte jenseits eines Grenzwerts sind eine Warnung oder ein Alarm. Eine leere Zelle heißt kein Grenzwert. Zahlen haben einen Dezimalpunkt.</translation>
    </message>
    <message>
        <source>Limits are set for the channels of a stream, and there are none yet.</source>
        <translation>Grenzwerte gelten für die Kanäle eines Datenstroms, und noch gibt es keine.</translation>
    </message>
</context>
<context>
    <name>Monitor::LineSource</name>
    <message>
        <source>opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>%1; trying again in %2 s</source>
        <translation>%1; neuer Versuch in %2 s</translation>
    </message>
    <message>
        <source>%1; waiting for the next one</source>
        <translation>%1; warte auf die nächste Verbindung</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>Ende von %1 erreicht</translation>
    </message>
    <message>
        <source>%1 has been silent for %2 s</source>
        <translation>%1 sendet seit %2 s nichts</translation>
    </message>
</context>
<context>
    <name>Monitor::MeasureMenu</name>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Messen</translation>
    </message>
    <message>
        <source>&amp;Limits</source>
        <translation>&amp;Grenzwerte</translation>
    </message>
    <message>
        <source>&amp;Zero</source>
        <translation>&amp;Nullen</translation>
    </message>
    <message>
        <source>Subtracts the newest reading of each channel from what is shown.</source>
        <translation>Zieht den neuesten Messwert jedes Kanals von der Anzeige ab.</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Untergrund</translation>
    </message>
    <message>
        <source>&amp;Remove zero and background</source>
        <translation>Nullung und Untergrund &amp;aufheben</translation>
    </message>
    <message>
        <source>&amp;Average of the scope</source>
        <translation>Mittelung &amp;im Scope</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>&amp;Markers</source>
        <translation>&amp;Marken</translation>
    </message>
    <message>
        <source>Two clicks on the scope place markers; the numbers between them stand beside it.</source>
        <translation>Zwei Klicks im Scope setzen Marken; die Zahlen dazwischen stehen daneben.</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorStatusBar</name>
    <message>
        <source>Where the readings come from</source>
        <translation>Woher die Messwerte kommen</translation>
    </message>
    <message>
        <source>Abnormal states</source>
        <translation>Abweichende Zustände</translation>
    </message>
    <message>
        <source>Readings per second</source>
        <translation>Messwerte pro Sekunde</translation>
    </message>
    <message>
        <source>Lines that could not be used; the log lists them</source>
        <translation>Unbrauchbare Zeilen; das Protokoll führt sie auf</translation>
    </message>
    <message>
        <source>Pauses longer than three of the usual intervals</source>
        <translation>Pausen länger als drei übliche Schritte</translation>
    </message>
    <message>
        <source>The file that is being recorded (Ctrl+R)</source>
        <translation>Die Datei, in die aufgezeichnet wird (Strg+R)</translation>
    </message>
    <message>
        <source>Time, UTC</source>
        <translation>Zeit, UTC</translation>
    </message>
    <message>
        <source>%1 /s</source>
        <translation>%1 /s</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULIERT</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>VERALTET</translation>
    </message>
    <message>
        <source>END</source>
        <translation>ENDE</translation>
    </message>
    <message>
        <source>DISK FULL IN %1</source>
        <translation>PLATTE VOLL IN %1</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>AUFZEICHNUNG GESTÖRT</translation>
    </message>
    <message>
        <source>%1 (over, F8 acknowledges)</source>
        <translation>%1 (vorbei, F8 quittiert)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 und noch %2</translation>
    </message>
    <message>
        <source>not recording</source>
        <translation>Aufzeichnung aus</translation>
    </message>
    <message>
        <source>REC %1, %2</source>
        <translation>REC %1, %2</translation>
    </message>
    <message>
        <source>%1, room for %2</source>
        <translation>%1, Platz für %2</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>seit dem Dreifachen des üblichen Abstands ist kein Messwert gekommen; Strahl und Gerät prüfen</translation>
    </message>
    <message>
        <source>what is shown stands still; Space shows the readings that wait</source>
        <translation>die Anzeige steht still; die Leertaste zeigt die wartenden Messwerte</translation>
    </message>
    <message>
        <source>no instrument is read; File &gt; Connect... reads one</source>
        <translation>es wird kein Gerät gelesen; Datei &gt; Verbinden... liest eines</translation>
    </message>
    <message>
        <source>the source has delivered everything; File &gt; Open... opens another one</source>
        <translation>die Quelle hat alles geliefert; Datei &gt; Öffnen... öffnet eine andere</translation>
    </message>
    <message>
        <source>%1. Make room, or record to another disk; readings wait meanwhile</source>
        <translation>%1. Platz schaffen oder auf eine andere Platte aufzeichnen; Messwerte warten so lange</translation>
    </message>
    <message>
        <source>make room, or record to another disk</source>
        <translation>Platz schaffen oder auf eine andere Platte aufzeichnen</translation>
    </message>
    <message>
        <source>F8 acknowledges, Measure &gt; Limits changes the limits; the log says when each was passed</source>
        <translation>F8 quittiert, Messen &gt; Grenzwerte ändert die Grenzwerte; das Protokoll enthält jede Überschreitung</translation>
    </message>
    <message>
        <source>compressing %1, %2 %</source>
        <translation>%1 wird komprimiert, %2 %</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1: %2, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>the recording has a gap here: the values shown are from before it</source>
        <translation>die Aufzeichnung hat hier eine Lücke: Die gezeigten Werte sind von davor</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorWindow</name>
    <message>
        <source>Latest &amp;values</source>
        <translation>&amp;Neueste Werte</translation>
    </message>
    <message>
        <source>Statist&amp;ics</source>
        <translation>S&amp;tatistik</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>P&amp;rotokoll</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>Neueste Werte</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
    <message>
        <source>Log (UTC)</source>
        <translation>Protokoll (UTC)</translation>
    </message>
    <message>
        <source>%1 - Corvale Monitor</source>
        <translation>%1 - Corvale Monitor</translation>
    </message>
</context>
<context>
    <name>Monitor::MultichannelDeviceModel</name>
    <message>
        <source>no unit</source>
        <translation>keine Einheit</translation>
    </message>
    <message>
        <source>%1, channel %2, %3</source>
        <translation>%1, Kanal %2, %3</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>kein Messwert</translation>
    </message>
    <message>
        <source>%1 %2, over range</source>
        <translation>%1 %2, außerhalb des Bereichs</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>Monitor::NoSource</name>
    <message>
        <source>No source is open</source>
        <translation>Keine Quelle ist offen</translation>
    </message>
    <message>
        <source>File &gt; Open... plays a recording, File &gt; Connect... reads an instrument.</source>
        <translation>Datei &gt; Öffnen... spielt eine Aufzeichnung ab, Datei &gt; Verbinden... liest ein Gerät.</translation>
    </message>
</context>
<context>
    <name>Monitor::PgmSource</name>
    <message>
        <source>Check the path and whether this user may read it; a folder needs files called *.pgm, with grey images of at most 256 x 256 pixels.</source>
        <translation>Pfad prüfen und ob dieser Benutzer ihn lesen darf; ein Ordner braucht Dateien *.pgm mit Graustufenbildern von höchstens 256 x 256 Pixeln.</translation>
    </message>
    <message>
        <source>%1 has no files called *.pgm</source>
        <translation>%1 hat keine Dateien *.pgm</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>Ende von %1 erreicht</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>Lesen von %1 misslungen: %2</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureActions</name>
    <message>
        <source>Save &amp;picture...</source>
        <translation>Bild &amp;speichern...</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>D&amp;rucken...</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>The printer %1 did not take the picture. Choose another one, or save the picture instead.</source>
        <translation>Der Drucker %1 hat das Bild nicht angenommen. Einen anderen wählen oder das Bild speichern.</translation>
    </message>
    <message>
        <source>Copy &amp;picture</source>
        <translation>&amp;Bild kopieren</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureDialog</name>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titel:</translation>
    </message>
    <message>
        <source>A title above the picture (Alt+T)</source>
        <translation>Ein Titel über dem Bild (Alt+T)</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Zeit</translation>
    </message>
    <message>
        <source>When the picture was taken, and what was subtracted or averaged (Alt+I)</source>
        <translation>Wann das Bild gemacht wurde, und was abgezogen oder gemittelt ist (Alt+Z)</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>&amp;Legende</translation>
    </message>
    <message>
        <source>The channels that are shown, with their newest values (Alt+L)</source>
        <translation>Die gezeigten Kanäle mit ihren neuesten Werten (Alt+L)</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>As on the screen</source>
        <translation>Wie auf dem Bildschirm</translation>
    </message>
    <message>
        <source>Light, for paper</source>
        <translation>Hell, für Papier</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>The colours of the picture; the screen stays as it is (Alt+O)</source>
        <translation>Die Farben des Bildes; der Bildschirm bleibt, wie er ist (Alt+F)</translation>
    </message>
    <message>
        <source>C&amp;olours:</source>
        <translation>&amp;Farben:</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Speichern...</translation>
    </message>
    <message>
        <source>Write a PNG, SVG or PDF file (Enter)</source>
        <translation>Eine PNG-, SVG- oder PDF-Datei schreiben (Eingabe)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy the picture to the clipboard (Alt+C)</source>
        <translation>Das Bild in die Zwischenablage kopieren (Alt+K)</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginForm</name>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>As on the command line, for example %1. The plugin %2 reads it.</source>
        <translation>Wie auf der Befehlszeile, zum Beispiel %1. Das Plugin %2 liest sie.</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginSource</name>
    <message>
        <source>opening %1</source>
        <translation>%1 wird geöffnet</translation>
    </message>
    <message>
        <source>the plugin cannot open it</source>
        <translation>das Plugin kann sie nicht öffnen</translation>
    </message>
</context>
<context>
    <name>Monitor::ProfilePage</name>
    <message>
        <source>mean X %1</source>
        <translation>Mittel X %1</translation>
    </message>
    <message>
        <source>mean Y %1</source>
        <translation>Mittel Y %1</translation>
    </message>
    <message>
        <source>σ X %1</source>
        <translation>σ X %1</translation>
    </message>
    <message>
        <source>σ Y %1</source>
        <translation>σ Y %1</translation>
    </message>
    <message>
        <source>rotation %1°</source>
        <translation>Drehung %1°</translation>
    </message>
    <message>
        <source>elongation %1</source>
        <translation>Elongation %1</translation>
    </message>
    <message>
        <source>integral %1</source>
        <translation>Integral %1</translation>
    </message>
    <message>
        <source>max %1</source>
        <translation>Max. %1</translation>
    </message>
</context>
<context>
    <name>Monitor::RecordAction</name>
    <message>
        <source>Stop &amp;recording</source>
        <translation>Aufzeichnung &amp;beenden</translation>
    </message>
    <message>
        <source>&amp;Record...</source>
        <translation>&amp;Aufzeichnen...</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>Aufzeichnungen (*.csv)</translation>
    </message>
    <message>
        <source>%1. Choose another file.</source>
        <translation>%1. Eine andere Datei wählen.</translation>
    </message>
</context>
<context>
    <name>Monitor::Recorder</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 %2, and %3</source>
        <translation>%1 %2, und %3</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 gibt es schon; einen anderen Namen wählen oder Überschreiben erlauben (--overwrite)</translation>
    </message>
</context>
<context>
    <name>Monitor::ReportWindow</name>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Report of the crash</source>
        <translation>Bericht über den Absturz</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialForm</name>
    <message>
        <source>wait for ever</source>
        <translation>unbegrenzt warten</translation>
    </message>
    <message>
        <source>P&amp;ort:</source>
        <translation>A&amp;nschluss:</translation>
    </message>
    <message>
        <source>The ports of this machine, or the path of another one. Reading one needs the group dialout.</source>
        <translation>Die Anschlüsse dieses Rechners oder der Pfad eines anderen. Zum Lesen ist die Gruppe dialout nötig.</translation>
    </message>
    <message>
        <source>&amp;Rate:</source>
        <translation>&amp;Rate:</translation>
    </message>
    <message>
        <source>Bits per second, as the instrument is set; 8 data bits, no parity, 1 stop bit.</source>
        <translation>Bit pro Sekunde, wie am Gerät eingestellt; 8 Datenbits, keine Parität, 1 Stoppbit.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Stille:</translation>
    </message>
    <message>
        <source>no port found; for example /dev/ttyUSB0</source>
        <translation>kein Anschluss gefunden; zum Beispiel /dev/ttyUSB0</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Serieller Anschluss</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialSource</name>
    <message>
        <source>Check that the device is plugged in, that this user may open it (group dialout), and the baud rate.</source>
        <translation>Prüfen, ob das Gerät eingesteckt ist, ob dieser Benutzer es öffnen darf (Gruppe dialout), und die Baudrate.</translation>
    </message>
</context>
<context>
    <name>Monitor::Session</name>
    <message>
        <source>%1 is the source; record to another file</source>
        <translation>%1 ist die Quelle; in eine andere Datei aufzeichnen</translation>
    </message>
</context>
<context>
    <name>Monitor::SettingsDialog</name>
    <message>
        <source>As fast as &amp;possible</source>
        <translation>So schnell wie &amp;möglich</translation>
    </message>
    <message>
        <source>Play a file &amp;again and again</source>
        <translation>Datei immer &amp;wieder abspielen</translation>
    </message>
    <message>
        <source>its first reading</source>
        <translation>ihr erster Messwert</translation>
    </message>
    <message>
        <source>its last reading</source>
        <translation>ihr letzter Messwert</translation>
    </message>
    <message>
        <source>as the source says</source>
        <translation>wie die Quelle es angibt</translation>
    </message>
    <message>
        <source>record nothing by itself</source>
        <translation>nichts aufzeichnen</translation>
    </message>
    <message>
        <source>never</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>S&amp;tart</translation>
    </message>
    <message>
        <source>&amp;Files</source>
        <translation>Date&amp;ien</translation>
    </message>
    <message>
        <source>R&amp;eadings</source>
        <translation>Messwe&amp;rte</translation>
    </message>
    <message>
        <source>Re&amp;cordings</source>
        <translation>&amp;Aufzeichnungen</translation>
    </message>
    <message>
        <source>A simulated beam</source>
        <translation>Ein simulierter Strahl</translation>
    </message>
    <message>
        <source>The last source</source>
        <translation>Die letzte Quelle</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>Keine Quelle</translation>
    </message>
    <message>
        <source>&amp;Open:</source>
        <translation>Ö&amp;ffnen:</translation>
    </message>
    <message>
        <source>What a start shows if the command line names no source.</source>
        <translation>Was ein Start zeigt, wenn die Befehlszeile keine Quelle nennt.</translation>
    </message>
    <message>
        <source>Kept in:</source>
        <translation>Gespeichert in:</translation>
    </message>
    <message>
        <source>--settings FILE on the command line chooses another file, and another window.</source>
        <translation>--settings DATEI auf der Befehlszeile wählt eine andere Datei und ein anderes Fenster.</translation>
    </message>
    <message>
        <source> times as recorded</source>
        <translation>-mal so schnell wie aufgezeichnet</translation>
    </message>
    <message>
        <source>Spee&amp;d:</source>
        <translation>T&amp;empo:</translation>
    </message>
    <message>
        <source>F&amp;rom:</source>
        <translation>&amp;Von:</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>&amp;Bis:</translation>
    </message>
    <message>
        <source>Lowest &amp;limit:</source>
        <translation>U&amp;ntere Grenze:</translation>
    </message>
    <message>
        <source>&amp;Highest limit:</source>
        <translation>Obere &amp;Grenze:</translation>
    </message>
    <message>
        <source>In the unit of the readings; those outside are over range, from the next source on. Empty: as the source says.</source>
        <translation>In der Einheit der Messwerte; solche jenseits davon sind ab der nächsten Quelle außerhalb des Bereichs. Leer: wie die Quelle sagt.</translation>
    </message>
    <message>
        <source>&amp;Detector:</source>
        <translation>&amp;Detektor:</translation>
    </message>
    <message>
        <source>Fo&amp;lder:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>&amp;New file after:</source>
        <translation>Neue Datei na&amp;ch:</translation>
    </message>
    <message>
        <source>A time or a size: 1h, 30min, 100M, 2G.</source>
        <translation>Eine Zeit oder eine Größe: 1h, 30min, 100M, 2G.</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>D&amp;urchsuchen...</translation>
    </message>
    <message>
        <source>Folder for recordings</source>
        <translation>Ordner für Aufzeichnungen</translation>
    </message>
    <message>
        <source>Description of a detector</source>
        <translation>Beschreibung eines Detektors</translation>
    </message>
    <message>
        <source>Detectors (*.json);;All files (*)</source>
        <translation>Detektoren (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Limits need two numbers, the lower one first; or leave both fields empty.</source>
        <translation>Grenzen brauchen zwei Zahlen, die kleinere zuerst; oder beide Felder leer lassen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a time nor a size. Write 1h, 30min, 100M or 2G.</source>
        <translation>„%1“ ist weder eine Zeit noch eine Größe. Zum Beispiel 1h, 30min, 100M oder 2G schreiben.</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Wie der Desktop</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Sprache:</translation>
    </message>
    <message>
        <source>Every source that is opened is recorded to a new file in this folder, named after its date and time in UTC. Empty: only File &gt; Record.</source>
        <translation>Jede geöffnete Quelle wird in eine neue Datei in diesem Ordner aufgezeichnet, benannt nach Datum und Uhrzeit in UTC. Leer: nur Datei &gt; Aufzeichnen.</translation>
    </message>
    <message>
        <source>Takes effect at the next start. Numbers and files are the same in every language.</source>
        <translation>Gilt ab dem nächsten Start. Zahlen und Dateien sind in jeder Sprache gleich.</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>keine Grenze</translation>
    </message>
    <message>
        <source>&amp;No beam below:</source>
        <translation>&amp;Kein Strahl unter:</translation>
    </message>
    <message>
        <source>A file that describes the detector, or a preset. Empty: what the source says, otherwise positions in cells.</source>
        <translation>Eine Datei, die den Detektor beschreibt, oder eine Vorlage. Leer: was die Quelle angibt, sonst Positionen in Zellen.</translation>
    </message>
    <message>
        <source>A sum of readings, in their unit. Below it, the position displays say &quot;no beam&quot;.</source>
        <translation>Eine Summe der Messwerte, in deren Einheit. Darunter sagen die Positionsanzeigen „kein Strahl“.</translation>
    </message>
    <message>
        <source>Ch&amp;oose</source>
        <translation>A&amp;uswählen</translation>
    </message>
    <message>
        <source>&amp;File...</source>
        <translation>&amp;Datei...</translation>
    </message>
    <message>
        <source>&amp;Verdicts</source>
        <translation>Urtei&amp;le</translation>
    </message>
    <message>
        <source>stays text</source>
        <translation>bleibt Text</translation>
    </message>
    <message>
        <source>is compressed (zstd)</source>
        <translation>wird komprimiert (zstd)</translation>
    </message>
    <message>
        <source>becomes HDF5 (NeXus)</source>
        <translation>wird zu HDF5 (NeXus)</translation>
    </message>
    <message>
        <source>A co&amp;mplete file:</source>
        <translation>&amp;Jede fertige Datei:</translation>
    </message>
    <message>
        <source>What becomes of a file once nothing more is written to it. The monitor reads all of them.</source>
        <translation>Was aus einer Datei wird, sobald nichts mehr in sie geschrieben wird. Der Monitor liest alle diese Formen.</translation>
    </message>
    <message>
        <source>Times of the file, in seconds, or numbers of readings that have no times. They hold for files that are opened from now on, until the end of the program.</source>
        <translation>Zeiten der Datei in Sekunden, oder Nummern von Messwerten, die keine Zeiten haben. Sie gelten für Dateien, die ab jetzt geöffnet werden, bis zum Ende des Programms.</translation>
    </message>
    <message>
        <source>There is nothing between %1 and %2: the first time must be the earlier one.</source>
        <translation>Zwischen %1 und %2 liegt nichts: Die erste Zeit muss die frühere sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write it with a decimal point, like 1.5 or -1e-6.</source>
        <translation>„%1“ ist keine Zahl. Mit Dezimalpunkt schreiben, etwa 1.5 oder -1e-6.</translation>
    </message>
</context>
<context>
    <name>Monitor::SimulatorForm</name>
    <message>
        <source>Strip detector, 32 and 32 strips</source>
        <translation>Streifendetektor, 32 und 32 Streifen</translation>
    </message>
    <message>
        <source>Pixel detector, 12 by 12</source>
        <translation>Pixeldetektor, 12 mal 12</translation>
    </message>
    <message>
        <source>Ionisation chamber with 4 sectors</source>
        <translation>Ionisationskammer mit 4 Sektoren</translation>
    </message>
    <message>
        <source>Spots of a treatment field</source>
        <translation>Spots eines Bestrahlungsfelds</translation>
    </message>
    <message>
        <source>usual</source>
        <translation>üblich</translation>
    </message>
    <message>
        <source>&amp;Instrument:</source>
        <translation>&amp;Gerät:</translation>
    </message>
    <message>
        <source>The beam is computed; no hardware is needed.</source>
        <translation>Der Strahl wird berechnet; es ist keine Hardware nötig.</translation>
    </message>
    <message>
        <source>S&amp;eed:</source>
        <translation>Start&amp;wert:</translation>
    </message>
    <message>
        <source>Another number gives another beam and other noise.</source>
        <translation>Eine andere Zahl ergibt einen anderen Strahl und anderes Rauschen.</translation>
    </message>
    <message>
        <source>Simulated beam</source>
        <translation>Simulierter Strahl</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceForm</name>
    <message>
        <source>Connect again if a source that used to talk says nothing for this long, like 30s. Empty: wait for ever, as there may be no beam.</source>
        <translation>Neu verbinden, wenn eine Quelle, die gesendet hat, so lange schweigt, etwa 30s. Leer: unbegrenzt warten, denn vielleicht ist kein Strahl da.</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceNotice</name>
    <message>
        <source>%1 contains no readings.</source>
        <translation>%1 enthält keine Messwerte.</translation>
    </message>
    <message>
        <source>%1 contains no readings: %2.</source>
        <translation>%1 enthält keine Messwerte: %2.</translation>
    </message>
    <message>
        <source>%1: no reading has arrived yet</source>
        <translation>%1: noch ist kein Messwert gekommen</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceSwitch</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Opening another source ends the recording.</source>
        <translation>Eine andere Quelle zu öffnen beendet die Aufzeichnung.</translation>
    </message>
    <message>
        <source>Closing the source ends the recording.</source>
        <translation>Die Quelle zu schließen beendet die Aufzeichnung.</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>Aufzeichnung beenden?</translation>
    </message>
    <message>
        <source>%1 What was recorded stays in %2.</source>
        <translation>%1 Was aufgezeichnet wurde, bleibt in %2.</translation>
    </message>
    <message>
        <source>&amp;End the recording</source>
        <translation>&amp;Aufzeichnung beenden</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufzeichnen</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>The source is open, but it is not recorded: %1. Choose another folder in File &gt; Settings..., or record with File &gt; Record...</source>
        <translation>Die Quelle ist offen, wird aber nicht aufgezeichnet: %1. In Datei &gt; Einstellungen... einen anderen Ordner wählen oder mit Datei &gt; Aufzeichnen... aufzeichnen</translation>
    </message>
    <message>
        <source>The detector stays as it was: %1. Choose another file.</source>
        <translation>Der Detektor bleibt, wie er war: %1. Eine andere Datei wählen.</translation>
    </message>
    <message>
        <source>Reading the table again ends the recording.</source>
        <translation>Wird die Tabelle neu gelesen, endet die Aufzeichnung.</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceTest</name>
    <message>
        <source>none</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>Waiting for the first readings ...</source>
        <translation>Warte auf die ersten Messwerte ...</translation>
    </message>
    <message>
        <source>The source works.</source>
        <translation>Die Quelle funktioniert.</translation>
    </message>
    <message>
        <source>First lines:</source>
        <translation>Erste Zeilen:</translation>
    </message>
    <message>
        <source>It contains no readings: %1.</source>
        <translation>Sie enthält keine Messwerte: %1.</translation>
    </message>
    <message>
        <source>Some lines cannot be used; the first is %1</source>
        <translation>Einige Zeilen sind unbrauchbar; die erste ist %1</translation>
    </message>
    <message>
        <source>It contains no readings</source>
        <translation>Sie enthält keine Messwerte</translation>
    </message>
    <message>
        <source>Something arrived, but nothing of it could be read within %1 s. The source must send lines of numbers; see Help &gt; Line protocol.</source>
        <translation>Es kam etwas an, aber innerhalb von %1 s war nichts davon lesbar. Die Quelle muss Zeilen mit Zahlen senden; siehe Hilfe &gt; Zeilenprotokoll.</translation>
    </message>
    <message>
        <source>Nothing arrived within %1 s. %2</source>
        <translation>Innerhalb von %1 s kam nichts an. %2</translation>
    </message>
</context>
<context>
    <name>Monitor::SpanControl</name>
    <message>
        <source>Time &amp;span:</source>
        <translation>&amp;Zeitspanne:</translation>
    </message>
    <message>
        <source>Time that the strip chart shows (Ctrl+T): choose one, or type 90 s, 2 h, 1.5 min or all. Readings older than the newest 100000 are shown as the range of blocks, for a week; while they are averaged, they are not shown.</source>
        <translation>Zeit, die der Verlauf zeigt (Strg+T): wählen oder eingeben, etwa 90 s, 2 h, 1.5 min oder alles. Messwerte vor den neuesten 100000 werden eine Woche lang als Bereich von Blöcken gezeigt; bei Mittelung nicht.</translation>
    </message>
</context>
<context>
    <name>Monitor::SpotLayers</name>
    <message>
        <source>Spots</source>
        <translation>Spots</translation>
    </message>
    <message>
        <source>Layer %1 of %2</source>
        <translation>Schicht %1 von %2</translation>
    </message>
</context>
<context>
    <name>Monitor::StaleMarks</name>
    <message>
        <source>old: %1</source>
        <translation>alt: %1</translation>
    </message>
    <message>
        <source>This value is old: no reading has arrived since.</source>
        <translation>Dieser Wert ist alt: Seither ist kein Messwert gekommen.</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputForm</name>
    <message>
        <source>Standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>Reads the lines, or grey images (PGM), that another program writes into this one:

    instrument | corvale-monitor -

What was read is gone, so this source cannot be tested and cannot be opened twice.</source>
        <translation>Liest die Zeilen oder Graustufenbilder (PGM), die ein anderes Programm in dieses schreibt:

    instrument | corvale-monitor -

Gelesenes ist verbraucht, deshalb kann diese Quelle nicht getestet und nicht zweimal geöffnet werden.</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputSource</name>
    <message>
        <source>reading standard input failed: %1</source>
        <translation>Lesen der Standardeingabe misslungen: %1</translation>
    </message>
    <message>
        <source>standard input: what follows image %1 cannot be read</source>
        <translation>Standardeingabe: was auf Bild %1 folgt, ist nicht lesbar</translation>
    </message>
</context>
<context>
    <name>Monitor::SweepNotice</name>
    <message>
        <source>The first sweep is shown when it is complete (%1 of %2)</source>
        <translation>Der erste Durchlauf wird gezeigt, wenn er vollständig ist (%1 von %2)</translation>
    </message>
</context>
<context>
    <name>Monitor::SystemError</name>
    <message>
        <source>Connection refused</source>
        <translation>Verbindung verweigert</translation>
    </message>
    <message>
        <source>Connection timed out</source>
        <translation>Zeitüberschreitung beim Verbinden</translation>
    </message>
    <message>
        <source>Host not found</source>
        <translation>Rechner nicht gefunden</translation>
    </message>
    <message>
        <source>Network unreachable</source>
        <translation>Netzwerk nicht erreichbar</translation>
    </message>
    <message>
        <source>Socket operation timed out</source>
        <translation>Zeitüberschreitung der Verbindung</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>unbekannter Fehler</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Datei oder Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>kein Platz mehr auf dem Datenträger</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>keine Berechtigung</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>zu viele offene Dateien</translation>
    </message>
    <message>
        <source>Host unreachable</source>
        <translation>Rechner nicht erreichbar</translation>
    </message>
    <message>
        <source>Network error</source>
        <translation>Netzwerkfehler</translation>
    </message>
    <message>
        <source>The address is not available</source>
        <translation>die Adresse ist nicht verfügbar</translation>
    </message>
    <message>
        <source>The address is protected</source>
        <translation>die Adresse ist geschützt</translation>
    </message>
    <message>
        <source>The bound address is already in use</source>
        <translation>die Adresse wird schon benutzt</translation>
    </message>
    <message>
        <source>The remote host closed the connection</source>
        <translation>die Gegenseite hat die Verbindung geschlossen</translation>
    </message>
    <message>
        <source>Device or resource busy</source>
        <translation>das Gerät ist belegt</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>Speicherkontingent überschritten</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>die Datei ist zu groß</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>Gerät nicht vorhanden</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>es ist kein Ordner</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>Vorgang nicht erlaubt</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>das Dateisystem ist schreibgeschützt</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeBar</name>
    <message>
        <source>Tape &amp;deck</source>
        <translation>&amp;Bandgerät</translation>
    </message>
</context>
<context>
    <name>Monitor::TapePanel</name>
    <message>
        <source>%1 x</source>
        <translation>%1 x</translation>
    </message>
    <message>
        <source>fastest</source>
        <translation>maximal</translation>
    </message>
    <message>
        <source>Tape</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>One reading back (comma)</source>
        <translation>Einen Messwert zurück (Komma)</translation>
    </message>
    <message>
        <source>Play or pause (Enter)</source>
        <translation>Abspielen oder anhalten (Eingabe)</translation>
    </message>
    <message>
        <source>One reading on (period)</source>
        <translation>Einen Messwert weiter (Punkt)</translation>
    </message>
    <message>
        <source>Speed of the tape</source>
        <translation>Tempo des Bands</translation>
    </message>
    <message>
        <source>Repeat from here ([)</source>
        <translation>Ab hier wiederholen ([)</translation>
    </message>
    <message>
        <source>Repeat up to here (])</source>
        <translation>Bis hier wiederholen (])</translation>
    </message>
    <message>
        <source>Repeat nothing (Backspace)</source>
        <translation>Nichts wiederholen (Rücktaste)</translation>
    </message>
    <message>
        <source>Pause the tape</source>
        <translation>Band anhalten</translation>
    </message>
    <message>
        <source>Play the tape</source>
        <translation>Band abspielen</translation>
    </message>
    <message>
        <source>%1/%2: </source>
        <translation>%1/%2: </translation>
    </message>
    <message>
        <source>How many times as fast as the recording was taken; of readings without times, 1 x shows %1 a second</source>
        <translation>Faktor der Geschwindigkeit; 1 ist so schnell, wie aufgezeichnet wurde. Von Messwerten ohne Zeiten zeigt 1 x %1 in der Sekunde</translation>
    </message>
    <message>
        <source>The time of the reading that is shown, as the recording has it; the time that passes in a gap; the number of the reading where the recording has no times</source>
        <translation>Die Zeit des gezeigten Messwerts, wie sie in der Aufzeichnung steht; in einer Lücke die Zeit, die vergeht; die Nummer des Messwerts, wo die Aufzeichnung keine Zeiten hat</translation>
    </message>
    <message>
        <source>Click or drag to go there, drag with Shift to repeat a stretch. Keys: left and right (with Shift ten times as far), Home, End, Page Up and Page Down to events and to where gaps begin and end.</source>
        <translation>Klicken oder ziehen, um dorthin zu gehen; mit Umschalt ziehen, um ein Stück zu wiederholen. Tasten: links und rechts (mit Umschalt zehnmal so weit), Pos1, Ende, Bild auf und Bild ab zu Ereignissen und zu Anfang und Ende von Lücken.</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeText</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>spot %1 of %2</source>
        <translation>Spot %1 von %2</translation>
    </message>
    <message>
        <source>reading %1 of %2</source>
        <translation>Messwert %1 von %2</translation>
    </message>
    <message>
        <source>gap, %1</source>
        <translation>Lücke, %1</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeTimeline</name>
    <message>
        <source>Time line of the recording</source>
        <translation>Zeitleiste der Aufzeichnung</translation>
    </message>
    <message>
        <source>The recording is being looked through: %1 %</source>
        <translation>Die Aufzeichnung wird durchgesehen: %1 %</translation>
    </message>
    <message>
        <source>, part %1 of %2</source>
        <translation>, Teil %1 von %2</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>no readings for %1</source>
        <translation>keine Messwerte während %1</translation>
    </message>
    <message>
        <source>The recording can be played, but not searched: %1</source>
        <translation>Die Aufzeichnung lässt sich abspielen, aber nicht durchsuchen: %1</translation>
    </message>
    <message>
        <source>the outline is the sum of %1</source>
        <translation>der Umriss ist die Summe von %1</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientForm</name>
    <message>
        <source>the instrument talks by itself</source>
        <translation>das Gerät sendet von selbst</translation>
    </message>
    <message>
        <source>wait for ever</source>
        <translation>unbegrenzt warten</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>R&amp;echner:</translation>
    </message>
    <message>
        <source>The name or the address of the instrument.</source>
        <translation>Name oder Adresse des Geräts.</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>The number of the TCP port; the instrument&apos;s manual has it.</source>
        <translation>Die Nummer des TCP-Ports; sie steht im Handbuch des Geräts.</translation>
    </message>
    <message>
        <source>What to send for each reading, like READ?, if the instrument answers only when asked.</source>
        <translation>Was für jeden Messwert zu senden ist, etwa READ?, wenn das Gerät nur auf Fragen antwortet.</translation>
    </message>
    <message>
        <source>E&amp;very:</source>
        <translation>A&amp;lle:</translation>
    </message>
    <message>
        <source>How often to ask: 100ms, 1s. Unused without a question.</source>
        <translation>Wie oft zu fragen ist: 100ms, 1s. Ohne Frage unbenutzt.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Stille:</translation>
    </message>
    <message>
        <source>Network instrument</source>
        <translation>Gerät im Netzwerk</translation>
    </message>
    <message>
        <source>&amp;Ask:</source>
        <translation>&amp;Frage:</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientSource</name>
    <message>
        <source>Check that the instrument is switched on and reachable, that the port is right, and whether the instrument must be asked (?ask=TEXT).</source>
        <translation>Prüfen, ob das Gerät eingeschaltet und erreichbar ist, ob der Port stimmt und ob das Gerät gefragt werden muss (?ask=TEXT).</translation>
    </message>
    <message>
        <source>its name was not resolved in time</source>
        <translation>der Name wurde nicht rechtzeitig aufgelöst</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerForm</name>
    <message>
        <source>wait for ever</source>
        <translation>unbegrenzt warten</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse:</translation>
    </message>
    <message>
        <source>127.0.0.1 lets only programs of this machine connect, 0.0.0.0 every machine of the network.</source>
        <translation>127.0.0.1 lässt nur Verbindungen von Programmen dieses Rechners zu, 0.0.0.0 die jedes Rechners im Netz.</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>&amp;Port:</translation>
    </message>
    <message>
        <source>The TCP port that this program opens and the other one connects to.</source>
        <translation>Der TCP-Port, den dieses Programm öffnet und mit dem sich das andere verbindet.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Stille:</translation>
    </message>
    <message>
        <source>Wait for a program</source>
        <translation>Auf ein Programm warten</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerSource</name>
    <message>
        <source>Check that no other program listens on this port, that the address belongs to this machine, and that the sender uses the same port.</source>
        <translation>Prüfen, ob kein anderes Programm auf diesem Port wartet, ob die Adresse zu diesem Rechner gehört und ob der Sender denselben Port benutzt.</translation>
    </message>
    <message>
        <source>the connection broke (%1)</source>
        <translation>die Verbindung ist abgebrochen (%1)</translation>
    </message>
</context>
<context>
    <name>Monitor::Text</name>
    <message>
        <source>its columns are separated by semicolons</source>
        <translation>ihre Spalten sind durch Semikolons getrennt</translation>
    </message>
    <message>
        <source>its columns are separated by tabs</source>
        <translation>ihre Spalten sind durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>its columns are separated by bars</source>
        <translation>ihre Spalten sind durch senkrechte Striche getrennt</translation>
    </message>
    <message>
        <source>its values are in quotes</source>
        <translation>ihre Werte stehen in Anführungszeichen</translation>
    </message>
    <message>
        <source>its numbers have a decimal comma</source>
        <translation>ihre Zahlen haben ein Dezimalkomma</translation>
    </message>
    <message>
        <source>its times are dates</source>
        <translation>ihre Zeiten sind Datumsangaben</translation>
    </message>
    <message>
        <source>its times are dates without a time zone (local time is assumed; clock=utc otherwise)</source>
        <translation>ihre Zeiten sind Datumsangaben ohne Zeitzone (Ortszeit wird angenommen; sonst clock=utc)</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>no column holds the time, and %1 is not a time</source>
        <translation>keine Spalte enthält die Zeit, und %1 ist keine Zeit</translation>
    </message>
    <message>
        <source>no column holds the time</source>
        <translation>keine Spalte enthält die Zeit</translation>
    </message>
    <message>
        <source>, and </source>
        <translation>, und </translation>
    </message>
    <message>
        <source>%1. The option --import &quot;%2&quot; reads it</source>
        <translation>%1. Die Option --import &quot;%2&quot; liest sie</translation>
    </message>
    <message>
        <source>%1. If its rows are 1 ms apart, the option --import &quot;%2&quot; reads it</source>
        <translation>%1. Wenn ihre Zeilen 1 ms auseinander liegen, liest sie die Option --import &quot;%2&quot;</translation>
    </message>
    <message>
        <source>&quot;%1&quot; makes no sense; there are delimiter=comma, semicolon, tab, blank or bar, decimal=comma, header=yes or no, time=COLUMN or none, interval=1ms, clock=utc or local, format=dd.MM.yyyy HH:mm:ss, skip=LINES and comment=SIGN, separated by commas</source>
        <translation>„%1“ ist nicht verständlich; es gibt delimiter=comma, semicolon, tab, blank oder bar, decimal=comma, header=yes oder no, time=SPALTE oder none, interval=1ms, clock=utc oder local, format=dd.MM.yyyy HH:mm:ss, skip=ZEILEN und comment=ZEICHEN, durch Kommas getrennt</translation>
    </message>
    <message>
        <source>with decimal=comma the delimiter cannot be a comma</source>
        <translation>mit decimal=comma kann das Trennzeichen kein Komma sein</translation>
    </message>
    <message>
        <source>clock says how a time column is read, and there is none</source>
        <translation>clock sagt, wie eine Zeitspalte gelesen wird, und es gibt keine</translation>
    </message>
    <message>
        <source>%1 is not a list of spots; it needs the columns x_mm, y_mm and mu</source>
        <translation>%1 ist keine Liste von Spots; nötig sind die Spalten x_mm, y_mm und mu</translation>
    </message>
    <message>
        <source>four numbers are needed, empty for no limit</source>
        <translation>vier Zahlen sind nötig, leer für keinen Grenzwert</translation>
    </message>
    <message>
        <source>the limits must rise from low alarm to high alarm</source>
        <translation>die Grenzwerte müssen von Alarm unten bis Alarm oben steigen</translation>
    </message>
    <message>
        <source>no spot lies where one is planned</source>
        <translation>kein Spot liegt, wo einer geplant ist</translation>
    </message>
    <message>
        <source> (row %1, spot %2)</source>
        <translation> (Zeile %1, Spot %2)</translation>
    </message>
    <message>
        <source> (row %1)</source>
        <translation> (Zeile %1)</translation>
    </message>
    <message>
        <source>; no tolerance is set</source>
        <translation>; keine Toleranz eingestellt</translation>
    </message>
    <message>
        <source>; %1 outside %2 x %3 mm</source>
        <translation>; %1 außerhalb %2 x %3 mm</translation>
    </message>
    <message>
        <source>%1 missing (%2 %7), %3 extra (%4 %7); total dose %5 %7 of %6 %7</source>
        <translation>%1 fehlen (%2 %7), %3 zu viel (%4 %7); Gesamtdosis %5 %7 von %6 %7</translation>
    </message>
    <message>
        <source>; largest difference of a spot %1 %2</source>
        <translation>; größte Differenz eines Spots %1 %2</translation>
    </message>
    <message>
        <source>was removed or renamed</source>
        <translation>wurde entfernt oder umbenannt</translation>
    </message>
    <message>
        <source>was replaced by another file</source>
        <translation>wurde durch eine andere Datei ersetzt</translation>
    </message>
    <message>
        <source>was changed by another program</source>
        <translation>wurde von einem anderen Programm geändert</translation>
    </message>
    <message>
        <source>over a year</source>
        <translation>über ein Jahr</translation>
    </message>
    <message>
        <source>%1 d</source>
        <translation>%1 d</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message>
        <source>%1 min</source>
        <translation>%1 min</translation>
    </message>
    <message>
        <source>less than a minute</source>
        <translation>weniger als eine Minute</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source; there are sim:, file:, -, tcp://, tcp-listen:// and serial:</source>
        <translation>„%1“ ist keine bekannte Art von Quelle; es gibt sim:, file:, -, tcp://, tcp-listen:// und serial:</translation>
    </message>
    <message>
        <source>sim:%1: only seed=NUMBER may follow the question mark</source>
        <translation>sim:%1: auf das Fragezeichen darf nur seed=ZAHL folgen</translation>
    </message>
    <message>
        <source>there is no simulator &quot;%1&quot;; there are sim:ic4, sim:strips, sim:pixels and sim:spots</source>
        <translation>es gibt keinen Simulator „%1“; es gibt sim:ic4, sim:strips, sim:pixels und sim:spots</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp://HOST:PORT</source>
        <translation>„%1“ müsste tcp://RECHNER:PORT sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?ask=TEXT&amp;every=100ms&amp;silence=30s may follow the port</source>
        <translation>„%1“: auf den Port darf nur ?ask=TEXT&amp;every=100ms&amp;silence=30s folgen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp-listen://127.0.0.1:PORT, with the address of one of this machine&apos;s interfaces (0.0.0.0 for all of them); only ?silence=30s may follow the port</source>
        <translation>„%1“ müsste tcp-listen://127.0.0.1:PORT sein, mit der Adresse einer Schnittstelle dieses Rechners (0.0.0.0 für alle); auf den Port darf nur ?silence=30s folgen</translation>
    </message>
    <message>
        <source>&quot;serial:%1&quot; should be serial:DEVICE or serial:DEVICE?baud=NUMBER&amp;silence=30s</source>
        <translation>„serial:%1“ müsste serial:GERÄT oder serial:GERÄT?baud=ZAHL&amp;silence=30s sein</translation>
    </message>
    <message>
        <source>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</source>
        <translation>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</translation>
    </message>
    <message>
        <source>%1: the name of a picture must end in .png, .svg or .pdf</source>
        <translation>%1: der Name eines Bildes muss auf .png, .svg oder .pdf enden</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>es ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Check the path and whether this user may read it</source>
        <translation>%1 kann nicht gelesen werden: %2. Pfad prüfen und ob dieser Benutzer sie lesen darf</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2. Correct this line, or remove it</source>
        <translation>%1 ist unbrauchbar: %2. Diese Zeile berichtigen oder entfernen</translation>
    </message>
    <message>
        <source>%1 has more than %2 spots. Compare the fields one by one</source>
        <translation>%1 hat mehr als %2 Spots. Die Felder einzeln vergleichen</translation>
    </message>
    <message>
        <source>another recorder is writing to it, or it is being compressed</source>
        <translation>ein anderes Programm zeichnet gerade darin auf, oder sie wird komprimiert</translation>
    </message>
    <message>
        <source>it has too many parts, or descriptions that are too long</source>
        <translation>sie hat zu viele Teile oder zu lange Beschreibungen</translation>
    </message>
    <message>
        <source>it contains no readings</source>
        <translation>sie enthält keine Messwerte</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 kann nicht geschrieben werden: %2. Eine andere Datei wählen.</translation>
    </message>
    <message>
        <source>%1x average</source>
        <translation>%1-fach gemittelt</translation>
    </message>
    <message>
        <source>it is a link of another user</source>
        <translation>es ist ein Verweis eines anderen Benutzers</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm</source>
        <translation>32 + 32 Streifen von 2 mm</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm, x in channels 1 to 32 and y in 65 to 96 of 128</source>
        <translation>32 + 32 Streifen von 2 mm, x in Kanälen 1 bis 32 und y in 65 bis 96 von 128</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm in 12 rows of 12, without the corners</source>
        <translation>120 Pixel von 3.8 mm in 12 Zeilen zu 12, ohne die Ecken</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm, as they are wired to 128 channels</source>
        <translation>120 Pixel von 3.8 mm, wie sie auf 128 Kanäle verdrahtet sind</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>es gibt %1</translation>
    </message>
    <message>
        <source>No signal.</source>
        <translation>Kein Signal.</translation>
    </message>
    <message>
        <source>it has no channels</source>
        <translation>sie hat keine Kanäle</translation>
    </message>
    <message>
        <source>frames of %1 x %2 values cannot be shown: a matrix has at most 256 columns and 256 rows, and planes of strips have at most 65536 values together</source>
        <translation>Bilder mit %1 x %2 Werten können nicht gezeigt werden: eine Matrix hat höchstens 256 Spalten und 256 Zeilen, und Ebenen von Streifen haben zusammen höchstens 65536 Werte</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source: %2</source>
        <translation>„%1“ ist keine bekannte Art von Quelle: %2</translation>
    </message>
    <message>
        <source>%1 is not a plugin</source>
        <translation>%1 ist kein Plugin</translation>
    </message>
    <message>
        <source>%1 is a plugin, but not for sources of this program</source>
        <translation>%1 ist ein Plugin, aber nicht für Quellen dieses Programms</translation>
    </message>
    <message>
        <source>%1 was built for version %2 of the interface, and this program has version %3</source>
        <translation>%1 wurde für Version %2 der Schnittstelle gebaut, und dieses Programm hat Version %3</translation>
    </message>
    <message>
        <source>%1 does not say which addresses it reads</source>
        <translation>%1 sagt nicht, welche Adressen es liest</translation>
    </message>
    <message>
        <source>there is no plugin for %1: install the package %2</source>
        <translation>es gibt kein Plugin für %1: das Paket %2 installieren</translation>
    </message>
    <message>
        <source>the plugin for %1 cannot be loaded: %2</source>
        <translation>das Plugin für %1 kann nicht geladen werden: %2</translation>
    </message>
    <message>
        <source>there is no file of that name, and no plugin for %1 in %2</source>
        <translation>es gibt keine Datei dieses Namens und kein Plugin für %1 in %2</translation>
    </message>
    <message>
        <source>LOST</source>
        <translation>VERLOREN</translation>
    </message>
    <message>
        <source>CONNECTING</source>
        <translation>VERBINDET</translation>
    </message>
    <message>
        <source>END</source>
        <translation>ENDE</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>VERALTET</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>seit dem Dreifachen des üblichen Abstands ist kein Messwert gekommen; Strahl und Gerät prüfen</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>AUFZEICHNUNG GESTÖRT</translation>
    </message>
    <message>
        <source>CLOCK %1 s</source>
        <translation>UHR %1 s</translation>
    </message>
    <message>
        <source>the clock of the source differs from this computer&apos;s by this much, so its chart shows another time than the others</source>
        <translation>die Uhr der Quelle weicht um so viel von der dieses Rechners ab; daher zeigt ihr Diagramm eine andere Zeit als die übrigen</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULIERT</translation>
    </message>
    <message>
        <source>no instrument is read</source>
        <translation>es wird kein Gerät gelesen</translation>
    </message>
    <message>
        <source>HDF5 gives no reason</source>
        <translation>HDF5 nennt keinen Grund</translation>
    </message>
    <message>
        <source>they are not numbers</source>
        <translation>sie sind keine Zahlen</translation>
    </message>
    <message>
        <source>they are not a list</source>
        <translation>sie sind keine Liste</translation>
    </message>
    <message>
        <source>they lie in another file</source>
        <translation>sie liegen in einer anderen Datei</translation>
    </message>
    <message>
        <source>their chunks are larger than %1 MB</source>
        <translation>ihre Blöcke sind größer als %1 MB</translation>
    </message>
    <message>
        <source>they claim to be more than the file can hold</source>
        <translation>sie geben vor, mehr zu sein, als in die Datei passt</translation>
    </message>
    <message>
        <source>its data %1 cannot be read: %2</source>
        <translation>ihre Daten %1 sind nicht lesbar: %2</translation>
    </message>
    <message>
        <source>they are missing</source>
        <translation>sie fehlen</translation>
    </message>
    <message>
        <source>they do not have the form that the file describes</source>
        <translation>sie haben nicht die Form, die die Datei beschreibt</translation>
    </message>
    <message>
        <source>the description of its readings is damaged</source>
        <translation>die Beschreibung ihrer Messwerte ist beschädigt</translation>
    </message>
    <message>
        <source>this program was built without HDF5; build it with the HDF5 library (Debian has it in libhdf5-dev) and the option CORVALE_QT_HDF5</source>
        <translation>dieses Programm wurde ohne HDF5 gebaut; mit der HDF5-Bibliothek (bei Debian in libhdf5-dev) und der Option CORVALE_QT_HDF5 hat es HDF5</translation>
    </message>
    <message>
        <source>it does not say which of its data is the signal</source>
        <translation>sie sagt nicht, welche ihrer Daten das Signal sind</translation>
    </message>
    <message>
        <source>its signal %1 is missing</source>
        <translation>ihr Signal %1 fehlt</translation>
    </message>
    <message>
        <source>its signal has %1 dimensions; 1, 2 and 3 can be shown</source>
        <translation>ihr Signal hat %1 Dimensionen; 1, 2 und 3 können gezeigt werden</translation>
    </message>
    <message>
        <source>its axis %1 is missing</source>
        <translation>ihre Achse %1 fehlt</translation>
    </message>
    <message>
        <source>its signal %1 has %2 values for each time; up to %3 can be shown</source>
        <translation>ihr Signal %1 hat %2 Werte für jede Zeit; bis zu %3 können gezeigt werden</translation>
    </message>
    <message>
        <source>its signal %1 has images of %2 x %3; up to %4 x %4 can be shown</source>
        <translation>ihr Signal %1 hat Bilder von %2 x %3; bis zu %4 x %4 können gezeigt werden</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 gibt es schon; einen anderen Namen wählen oder Überschreiben erlauben (--overwrite)</translation>
    </message>
    <message>
        <source>this user may not read it</source>
        <translation>dieser Benutzer darf sie nicht lesen</translation>
    </message>
    <message>
        <source>it is not a whole HDF5 file: it is damaged, cut off or still being written (%1)</source>
        <translation>sie ist keine ganze HDF5-Datei: sie ist beschädigt, abgeschnitten oder wird noch geschrieben (%1)</translation>
    </message>
    <message>
        <source>it changes while it is read</source>
        <translation>sie ändert sich, während sie gelesen wird</translation>
    </message>
    <message>
        <source>readings %1 to %2 of %3 are damaged (%4)</source>
        <translation>die Messwerte %1 bis %2 von %3 sind beschädigt (%4)</translation>
    </message>
    <message>
        <source>event %1 of %2 is damaged</source>
        <translation>das Ereignis %1 von %2 ist beschädigt</translation>
    </message>
    <message>
        <source>it is not open</source>
        <translation>sie ist nicht geöffnet</translation>
    </message>
    <message>
        <source>what was written is not what was recorded</source>
        <translation>was geschrieben wurde, ist nicht, was aufgezeichnet wurde</translation>
    </message>
    <message>
        <source>it has no NXdata</source>
        <translation>sie hat kein NXdata</translation>
    </message>
    <message>
        <source>it has no NXentry and no NXdata, which tell what its numbers are</source>
        <translation>sie hat weder NXentry noch NXdata, die sagen, was ihre Zahlen bedeuten</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>the description of the stream is too long</source>
        <translation>die Beschreibung des Datenstroms ist zu lang</translation>
    </message>
    <message>
        <source>it has more than %1 acquisitions; convert its parts one by one</source>
        <translation>sie hat mehr als %1 Messungen; ihre Teile einzeln umwandeln</translation>
    </message>
    <message>
        <source>another program writes to %1</source>
        <translation>ein anderes Programm schreibt in %1</translation>
    </message>
    <message>
        <source>NOT RECORDED</source>
        <translation>NICHT AUFGEZEICHNET</translation>
    </message>
    <message>
        <source>the file of this source could not be begun; the log says why. Stop the recording and begin another one</source>
        <translation>die Datei dieser Quelle konnte nicht begonnen werden; das Protokoll sagt, warum. Die Aufzeichnung beenden und eine neue beginnen</translation>
    </message>
    <message>
        <source>the texts in it are damaged</source>
        <translation>die Texte darin sind beschädigt</translation>
    </message>
    <message>
        <source>it should begin with the name of the control system, like tango:beam/monitor/1</source>
        <translation>am Anfang sollte der Name des Kontrollsystems stehen, etwa tango:beam/monitor/1</translation>
    </message>
    <message>
        <source>%1 was built for another version of the interface</source>
        <translation>%1 wurde für eine andere Version der Schnittstelle gebaut</translation>
    </message>
    <message>
        <source>the plugin for %1 reads sources, and publishes nothing</source>
        <translation>das Plugin für %1 liest Quellen und veröffentlicht nichts</translation>
    </message>
    <message>
        <source>%1 is shown alone: its images have no times. Open it with File &gt; Open..., or in a window with another --settings FILE</source>
        <translation>%1 wird allein gezeigt: Die Bilder haben keine Zeiten. Mit Datei &gt; Öffnen... öffnen oder in einem Fenster mit einer anderen --settings-Datei</translation>
    </message>
    <message>
        <source>%1 is a recording, and %2 is an instrument: they are not shown together, since their readings were taken at different times. Open one of them in a window with another --settings FILE</source>
        <translation>%1 ist eine Aufzeichnung, und %2 ist ein Gerät: Sie werden nicht zusammen gezeigt, da ihre Messwerte zu verschiedenen Zeiten entstanden sind. Eines davon in einem Fenster mit einer anderen --settings-Datei öffnen</translation>
    </message>
    <message>
        <source>a text in it is larger than 64 MB</source>
        <translation>ein Text darin ist größer als 64 MB</translation>
    </message>
    <message>
        <source>the system cannot start another thread</source>
        <translation>das System kann keinen weiteren Thread starten</translation>
    </message>
    <message numerus="yes">
        <source>The source works. It sent only %n reading(s) within %1 s.</source>
        <translation>
            <numerusform>Die Quelle funktioniert. Sie hat in %1 s nur %n Messwert gesendet.</numerusform>
            <numerusform>Die Quelle funktioniert. Sie hat in %1 s nur %n Messwerte gesendet.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Read as %n channel(s), layout %1:</source>
        <translation>
            <numerusform>Gelesen als %n Kanal, Anordnung %1:</numerusform>
            <numerusform>Gelesen als %n Kanäle, Anordnung %1:</numerusform>
        </translation>
    </message>
    <message>
        <source>its signal %1 has no time axis</source>
        <translation>ihr Signal %1 hat keine Zeitachse</translation>
    </message>
    <message>
        <source>its axis %1 is not as long as its signal %2</source>
        <translation>ihre Achse %1 ist nicht so lang wie ihr Signal %2</translation>
    </message>
    <message>
        <source>the axis %1 of its signal %2 is in %3, which is not a unit of time</source>
        <translation>die Achse %1 ihres Signals %2 ist in %3 angegeben, was keine Zeiteinheit ist</translation>
    </message>
    <message numerus="yes">
        <source>%1 is being compressed, and %n more file(s) is/are waiting. Nothing is lost if you do not wait.</source>
        <translation>
            <numerusform>%1 wird komprimiert, und eine weitere Datei wartet. Auch ohne Warten geht nichts verloren.</numerusform>
            <numerusform>%1 wird komprimiert, und %n weitere Dateien warten. Auch ohne Warten geht nichts verloren.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n spot(s): mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</source>
        <translation>
            <numerusform>%n Spot: Mittel X %1, Y %2 mm; Sigma X %3, Y %4 mm; größter Fehler %5 mm</numerusform>
            <numerusform>%n Spots: Mittel X %1, Y %2 mm; Sigma X %3, Y %4 mm; größter Fehler %5 mm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spot(s) without a place, a dose or a width is/are not compared</source>
        <translation>
            <numerusform>; %n Spot ohne Ort, Dosis oder Breite wird nicht verglichen</numerusform>
            <numerusform>; %n Spots ohne Ort, Dosis oder Breite werden nicht verglichen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n reading(s) lies in the times that were asked for</source>
        <translation>
            <numerusform>ihr einziger Messwert liegt nicht in den verlangten Zeiten</numerusform>
            <numerusform>keiner ihrer %n Messwerte liegt in den verlangten Zeiten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n line(s) can be read; the first was %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</source>
        <translation>
            <numerusform>ihre einzige Zeile ist nicht lesbar: %1; eine Zeile muss t,v1,v2,... mit Dezimalpunkten sein, oder --import muss sagen, wie sie geschrieben ist</numerusform>
            <numerusform>keine ihrer %n Zeilen ist lesbar; die erste war %1; eine Zeile muss t,v1,v2,... mit Dezimalpunkten sein, oder --import muss sagen, wie sie geschrieben ist</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were cleared from the displays. For a minute it/they can be brought back (%1).</source>
        <translation>
            <numerusform>%n Messwert wurde aus den Anzeigen gelöscht. Eine Minute lang lässt er sich zurückholen (%1).</numerusform>
            <numerusform>%n Messwerte wurden aus den Anzeigen gelöscht. Eine Minute lang lassen sie sich zurückholen (%1).</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n column(s) beyond the first %1 is/are left out; a stream of frames may have more</source>
        <translation>
            <numerusform>%n Spalte nach den ersten %1 bleibt unberücksichtigt; ein Strom von Bildern darf mehr haben</numerusform>
            <numerusform>%n Spalten nach den ersten %1 bleiben unberücksichtigt; ein Strom von Bildern darf mehr haben</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Subtracts the mean of the last %n reading(s) of each channel from what is shown.</source>
        <translation>
            <numerusform>Zieht den letzten Messwert jedes Kanals von der Anzeige ab.</numerusform>
            <numerusform>Zieht das Mittel der letzten %n Messwerte jedes Kanals von der Anzeige ab.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s)</source>
        <translation>
            <numerusform>%n Messwert</numerusform>
            <numerusform>%n Messwerte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n bad line(s)</source>
        <translation>
            <numerusform>%n Fehlzeile</numerusform>
            <numerusform>%n Fehlzeilen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n gap(s)</source>
        <translation>
            <numerusform>%n Lücke</numerusform>
            <numerusform>%n Lücken</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PAUSED, %n reading(s) wait(s)</source>
        <translation>
            <numerusform>ANGEHALTEN, %n Messwert wartet</numerusform>
            <numerusform>ANGEHALTEN, %n Messwerte warten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: none of %n line(s) could be read; the first was %2. A line must be t,v1,v2,... with decimal points.</source>
        <translation>
            <numerusform>%1: die einzige Zeile war nicht lesbar: %2. Eine Zeile muss t,v1,v2,... mit Dezimalpunkten sein.</numerusform>
            <numerusform>%1: keine von %n Zeilen war lesbar; die erste war %2. Eine Zeile muss t,v1,v2,... mit Dezimalpunkten sein.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n layer(s)</source>
        <translation>
            <numerusform>Eine Schicht</numerusform>
            <numerusform>Alle %n Schichten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) is/are not wired</source>
        <translation>
            <numerusform>%n Zelle ist nicht verdrahtet</numerusform>
            <numerusform>%n Zellen sind nicht verdrahtet</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong(s) to no cell</source>
        <translation>
            <numerusform>%n Messwert gehört zu keiner Zelle</numerusform>
            <numerusform>%n Messwerte gehören zu keiner Zelle</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2 left out</source>
        <translation>%1: %2 ausgelassen</translation>
    </message>
    <message>
        <source>readings with charge where the detector has no cell: %1; the worst, at %2 s: %3</source>
        <translation>Messwerte mit Ladung, wo der Detektor keine Zelle hat: %1; der schlimmste, bei %2 s: %3</translation>
    </message>
    <message>
        <source>longer than 2 MiB</source>
        <translation>länger als 2 MiB</translation>
    </message>
    <message>
        <source>more than 256 values</source>
        <translation>mehr als 256 Werte</translation>
    </message>
    <message>
        <source>a different number of values than the lines before</source>
        <translation>eine andere Zahl von Werten als die Zeilen davor</translation>
    </message>
    <message>
        <source>its time goes backwards</source>
        <translation>ihre Zeit geht zurück</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>image %1 dropped, %2: &quot;%3&quot;</source>
        <translation>Bild %1 verworfen, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1 dropped, %2: &quot;%3&quot;</source>
        <translation>Messwert %1 verworfen, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1 dropped, %2: &quot;%3&quot;</source>
        <translation>Zeile %1 verworfen, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>image %1, %2: &quot;%3&quot;</source>
        <translation>Bild %1, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1, %2: &quot;%3&quot;</source>
        <translation>Messwert %1, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1, %2: &quot;%3&quot;</source>
        <translation>Zeile %1, %2: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>the compressed file is damaged; --check says what is lost, and --repair saves what can be read</source>
        <translation>die komprimierte Datei ist beschädigt; --check sagt, was fehlt, und --repair rettet, was lesbar ist</translation>
    </message>
    <message>
        <source>it should be #frame TIME ROWS COLUMNS</source>
        <translation>richtig ist #frame ZEIT ZEILEN SPALTEN</translation>
    </message>
    <message>
        <source>the time is not a number</source>
        <translation>die Zeit ist keine Zahl</translation>
    </message>
    <message>
        <source>a frame has 1 to %1 rows and columns</source>
        <translation>ein Bild hat 1 bis %1 Zeilen und Spalten</translation>
    </message>
    <message>
        <source>only a stream that begins with #corvale 2 has frames</source>
        <translation>nur ein Datenstrom, der mit #corvale 2 beginnt, hat Bilder</translation>
    </message>
    <message>
        <source>it belongs to no frame</source>
        <translation>sie gehört zu keinem Bild</translation>
    </message>
    <message>
        <source>row %1 of a frame, which is dropped</source>
        <translation>Zeile %1 eines Bildes, das verworfen wird</translation>
    </message>
    <message numerus="yes">
        <source>the frame ends after %n row(s)</source>
        <translation>
            <numerusform>das Bild endet nach %n Zeile</numerusform>
            <numerusform>das Bild endet nach %n Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 values, but the detector has %2</source>
        <translation>%1 Werte, aber der Detektor hat %2</translation>
    </message>
    <message>
        <source>#corvale: only the versions 1 and 2 are known</source>
        <translation>#corvale: nur die Versionen 1 und 2 sind bekannt</translation>
    </message>
    <message>
        <source>#channels: 1 to %1 names are needed, with commas between them</source>
        <translation>#channels: nötig sind 1 bis %1 Namen mit Kommas dazwischen</translation>
    </message>
    <message>
        <source>#layout: it should be channels, strips, pixels, matrix or spots</source>
        <translation>#layout: richtig ist channels, strips, pixels, matrix oder spots</translation>
    </message>
    <message>
        <source>#range: two numbers are needed, the lower one first</source>
        <translation>#range: nötig sind zwei Zahlen, die kleinere zuerst</translation>
    </message>
    <message>
        <source>#limits: the name of a channel and four numbers are needed</source>
        <translation>#limits: nötig sind der Name eines Kanals und vier Zahlen</translation>
    </message>
    <message>
        <source>#limits: there are more names than channels</source>
        <translation>#limits: es sind mehr Namen als Kanäle</translation>
    </message>
    <message>
        <source>the stream has no channel &quot;%1&quot;</source>
        <translation>der Datenstrom hat keinen Kanal „%1“</translation>
    </message>
    <message>
        <source>#t0: a date and a time are needed, like 2026-03-01T12:00:00Z</source>
        <translation>#t0: nötig sind Datum und Uhrzeit, etwa 2026-03-01T12:00:00Z</translation>
    </message>
    <message>
        <source>#t0-uncertainty: a time above 0 is needed, like 0.02 s</source>
        <translation>#t0-uncertainty: nötig ist eine Zeit über 0, etwa 0.02 s</translation>
    </message>
    <message numerus="yes">
        <source>the image ends after %1 of %n value(s)</source>
        <translation>
            <numerusform>das Bild endet nach %1 von %n Wert</numerusform>
            <numerusform>das Bild endet nach %1 von %n Werten</numerusform>
        </translation>
    </message>
    <message>
        <source>the image ends in its header</source>
        <translation>das Bild endet in seinem Kopf</translation>
    </message>
    <message>
        <source>a comment follows its largest value without a blank</source>
        <translation>auf seinen größten Wert folgt ohne Leerzeichen ein Kommentar</translation>
    </message>
    <message>
        <source>it does not begin with P2 or P5, as grey images do</source>
        <translation>es beginnt nicht mit P2 oder P5 wie Graustufenbilder</translation>
    </message>
    <message>
        <source>its header has other characters than digits</source>
        <translation>sein Kopf hat andere Zeichen als Ziffern</translation>
    </message>
    <message>
        <source>its largest value must be 1 to %1</source>
        <translation>sein größter Wert muss 1 bis %1 sein</translation>
    </message>
    <message>
        <source>value %1 is not a number</source>
        <translation>Wert %1 ist keine Zahl</translation>
    </message>
    <message>
        <source>value %1 is above %2, the largest</source>
        <translation>Wert %1 liegt über %2, dem größten</translation>
    </message>
    <message>
        <source>it has a line that cannot be read and would be lost: %1</source>
        <translation>sie hat eine Zeile, die nicht lesbar ist und verloren ginge: %1</translation>
    </message>
    <message>
        <source>no channel is computed: the stream has %1, and only independent channels can be computed with</source>
        <translation>kein Kanal wird berechnet: Der Datenstrom hat %1, und rechnen lässt sich nur mit unabhängigen Kanälen</translation>
    </message>
    <message>
        <source>no channel is computed: there would be more than %1 channels; compute fewer</source>
        <translation>kein Kanal wird berechnet: Es wären mehr als %1 Kanäle; weniger berechnen</translation>
    </message>
    <message>
        <source>no channel is computed: %1, %2</source>
        <translation>kein Kanal wird berechnet: %1, %2</translation>
    </message>
    <message>
        <source>ALARM: %1 above %2</source>
        <translation>ALARM: %1 über %2</translation>
    </message>
    <message>
        <source>ALARM: %1 below %2</source>
        <translation>ALARM: %1 unter %2</translation>
    </message>
    <message>
        <source>WARNING: %1 above %2</source>
        <translation>WARNUNG: %1 über %2</translation>
    </message>
    <message>
        <source>WARNING: %1 below %2</source>
        <translation>WARNUNG: %1 unter %2</translation>
    </message>
    <message>
        <source>strips</source>
        <translation>Streifen</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>spots</source>
        <translation>Spots</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>Kanäle</translation>
    </message>
    <message numerus="yes">
        <source>it has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>er hat %n Messwert, der Datenstrom %1</numerusform>
            <numerusform>er hat %n Messwerte, der Datenstrom %1</numerusform>
        </translation>
    </message>
    <message>
        <source>it has %1 x %2 cells, the frames %3 x %4</source>
        <translation>er hat %1 x %2 Zellen, die Bilder %3 x %4</translation>
    </message>
    <message>
        <source>its channels have no places</source>
        <translation>seine Kanäle haben keine Orte</translation>
    </message>
    <message>
        <source>the other side reset the connection instead of closing it</source>
        <translation>die Gegenseite hat die Verbindung zurückgesetzt, statt sie zu schließen</translation>
    </message>
    <message>
        <source>the other side closed the connection</source>
        <translation>die Gegenseite hat die Verbindung geschlossen</translation>
    </message>
    <message>
        <source>its text is written in UTF-16. Save the file as UTF-8</source>
        <translation>sein Text ist in UTF-16 geschrieben. Die Datei als UTF-8 speichern</translation>
    </message>
    <message>
        <source>column %1 is said to hold the time, but the last column is %2</source>
        <translation>Spalte %1 soll die Zeit enthalten, aber die letzte Spalte ist %2</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the log</source>
        <translation>
            <numerusform>%n mehr im Protokoll</numerusform>
            <numerusform>%n mehr im Protokoll</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Monitor::TimeAxisActions</name>
    <message>
        <source>Time &amp;axis</source>
        <translation>&amp;Zeitachse</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatisch</translation>
    </message>
    <message>
        <source>Local time where the source tells the moment of its readings, otherwise seconds.</source>
        <translation>Ortszeit, wo die Quelle den Zeitpunkt ihrer Messwerte angibt, sonst Sekunden.</translation>
    </message>
    <message>
        <source>&amp;Seconds</source>
        <translation>&amp;Sekunden</translation>
    </message>
    <message>
        <source>The times as the source gives them.</source>
        <translation>Die Zeiten, wie die Quelle sie angibt.</translation>
    </message>
    <message>
        <source>&amp;Relative</source>
        <translation>&amp;Relativ</translation>
    </message>
    <message>
        <source>The time from the newest reading.</source>
        <translation>Die Zeit ab dem neuesten Messwert.</translation>
    </message>
    <message>
        <source>&amp;Local time</source>
        <translation>&amp;Ortszeit</translation>
    </message>
    <message>
        <source>Date and time in the time zone of this computer.</source>
        <translation>Datum und Uhrzeit in der Zeitzone dieses Rechners.</translation>
    </message>
    <message>
        <source>&amp;UTC</source>
        <translation>&amp;UTC</translation>
    </message>
    <message>
        <source>Date and time in UTC.</source>
        <translation>Datum und Uhrzeit in UTC.</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerAction</name>
    <message>
        <source>&amp;Trigger...</source>
        <translation>&amp;Trigger...</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerDialog</name>
    <message>
        <source>Readings that pass this level begin a sweep</source>
        <translation>Messwerte, die diesen Pegel kreuzen, beginnen einen Durchlauf</translation>
    </message>
    <message>
        <source>How far a reading must have been on the other side of the level; more than the noise</source>
        <translation>Wie weit ein Messwert auf der anderen Seite des Pegels gewesen sein muss; mehr als das Rauschen</translation>
    </message>
    <message>
        <source>Shortest time between two triggers</source>
        <translation>Kürzeste Zeit zwischen zwei Triggern</translation>
    </message>
    <message>
        <source>&amp;Arm</source>
        <translation>S&amp;charf schalten</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Trigger</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Einmal</translation>
    </message>
    <message>
        <source>Automatic shows sweeps also where no trigger comes; Single shows one</source>
        <translation>Automatisch zeigt Durchläufe auch ohne Trigger; Einmal zeigt einen</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>Steigend</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>Fallend</translation>
    </message>
    <message>
        <source>Either</source>
        <translation>Beide</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Share of the sweep that lies before the trigger</source>
        <translation>Anteil des Durchlaufs vor dem Trigger</translation>
    </message>
    <message>
        <source>Wait for the next trigger</source>
        <translation>Auf den nächsten Trigger warten</translation>
    </message>
    <message>
        <source>&amp;Mode:</source>
        <translation>&amp;Betriebsart:</translation>
    </message>
    <message>
        <source>&amp;Channel:</source>
        <translation>&amp;Kanal:</translation>
    </message>
    <message>
        <source>&amp;Level:</source>
        <translation>&amp;Pegel:</translation>
    </message>
    <message>
        <source>&amp;Edge:</source>
        <translation>&amp;Flanke:</translation>
    </message>
    <message>
        <source>&amp;Hysteresis:</source>
        <translation>&amp;Hysterese:</translation>
    </message>
    <message>
        <source>&amp;Before the trigger:</source>
        <translation>&amp;Vor dem Trigger:</translation>
    </message>
    <message>
        <source>Hold-&amp;off in s:</source>
        <translation>&amp;Sperrzeit in s:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Zustand:</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>Numbers need a decimal point; hysteresis and hold-off are 0 or more.</source>
        <translation>Zahlen brauchen einen Dezimalpunkt; Hysterese und Sperrzeit sind mindestens 0.</translation>
    </message>
    <message>
        <source>Armed</source>
        <translation>Scharf</translation>
    </message>
    <message>
        <source>Triggered</source>
        <translation>Ausgelöst</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
</context>
<context>
    <name>Monitor::ValueActions</name>
    <message>
        <source>&amp;Value axis...</source>
        <translation>&amp;Werteachse...</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>&amp;Legende</translation>
    </message>
    <message>
        <source>Channel &amp;names under bars</source>
        <translation>&amp;Kanalnamen unter Balken</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>&amp;Eight colours</source>
        <translation>Acht &amp;Farben</translation>
    </message>
    <message>
        <source>&amp;Many colours, with dashes</source>
        <translation>&amp;Viele Farben, mit Strichelung</translation>
    </message>
    <message>
        <source>&amp;Safe for colour-blind eyes, with dashes</source>
        <translation>&amp;Auch bei Farbenblindheit lesbar, mit Strichelung</translation>
    </message>
</context>
<context>
    <name>Monitor::ValueAxisDialog</name>
    <message>
        <source>Value axis</source>
        <translation>Werteachse</translation>
    </message>
    <message>
        <source>In the unit of the axis, or with a unit: -20, 250 pA. Enter sets it.</source>
        <translation>In der Einheit der Achse oder mit Einheit: -20, 250 pA. Eingabe übernimmt.</translation>
    </message>
    <message>
        <source>Automatic chooses the unit that suits the scale.</source>
        <translation>Automatisch wählt die zur Skala passende Einheit.</translation>
    </message>
    <message>
        <source>Ma&amp;ximum:</source>
        <translation>&amp;Maximum:</translation>
    </message>
    <message>
        <source>Mi&amp;nimum:</source>
        <translation>M&amp;inimum:</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>&amp;Einheit:</translation>
    </message>
    <message>
        <source>&amp;Logarithmic</source>
        <translation>&amp;Logarithmisch</translation>
    </message>
    <message>
        <source>Values that are 0 or negative cannot be shown then; the plot names their channels (Alt+L)</source>
        <translation>Werte, die 0 oder negativ sind, lassen sich dann nicht zeigen; das Diagramm nennt ihre Kanäle (Alt+L)</translation>
    </message>
    <message>
        <source>&amp;Set range</source>
        <translation>&amp;Bereich setzen</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatisch</translation>
    </message>
    <message>
        <source>Show the range from minimum to maximum (Enter)</source>
        <translation>Den Bereich von Minimum bis Maximum zeigen (Eingabe)</translation>
    </message>
    <message>
        <source>Let the range follow the readings (Alt+A)</source>
        <translation>Den Bereich den Messwerten folgen lassen (Alt+A)</translation>
    </message>
    <message>
        <source>The minimum must be below the maximum.</source>
        <translation>Das Minimum muss unter dem Maximum liegen.</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>Automatisch (%1)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value in %2. Write one like -20, or with its unit like 250 pA.</source>
        <translation>„%1“ ist kein Wert in %2. Zum Beispiel -20 schreiben oder mit Einheit 250 pA.</translation>
    </message>
    <message>
        <source>&amp;Right maximum:</source>
        <translation>&amp;Rechts Maximum:</translation>
    </message>
    <message>
        <source>Ri&amp;ght minimum:</source>
        <translation>Re&amp;chts Minimum:</translation>
    </message>
    <message>
        <source>Righ&amp;t unit:</source>
        <translation>Rec&amp;hts Einheit:</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write one like -20 or 2.5e-7.</source>
        <translation>„%1“ ist keine Zahl. Zum Beispiel -20 oder 2.5e-7 schreiben.</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
</context>
<context>
    <name>Monitor::VerdictPage</name>
    <message>
        <source>Res&amp;iduals, poor:</source>
        <translation>R&amp;esiduen, schlecht:</translation>
    </message>
    <message>
        <source>R&amp;2:</source>
        <translation>R&amp;2:</translation>
    </message>
    <message>
        <source>A fit with a smaller R2 is poor.</source>
        <translation>Ein Fit mit kleinerem R2 ist schlecht.</translation>
    </message>
    <message>
        <source>Cha&amp;rge in bad cells:</source>
        <translation>Ladung in &amp;defekten Zellen:</translation>
    </message>
    <message>
        <source>&amp;Background:</source>
        <translation>Unter&amp;grund:</translation>
    </message>
    <message>
        <source>Resid&amp;uals, not valid:</source>
        <translation>Re&amp;siduen, ungültig:</translation>
    </message>
    <message>
        <source>&amp;Widest sigma:</source>
        <translation>Größtes Sig&amp;ma:</translation>
    </message>
    <message>
        <source>&amp;Peak over noise:</source>
        <translation>S&amp;pitze über Rauschen:</translation>
    </message>
    <message>
        <source>Profile, histogram and report say &quot;DATA VALID&quot;, &quot;DATA VALID, FIT POOR&quot; or &quot;DATA NOT VALID&quot; by these limits. A detector whose description states limits of its own (its key &quot;verdict&quot;) is judged by those alone. --stats takes these limits from --settings FILE.</source>
        <translation>Profil, Histogramm und Bericht sagen nach diesen Grenzen &quot;DATEN GÜLTIG&quot;, &quot;DATEN GÜLTIG, FIT SCHLECHT&quot; oder &quot;DATEN UNGÜLTIG&quot;. Ein Detektor, dessen Beschreibung eigene Grenzen nennt (Schlüssel &quot;verdict&quot;), wird nur nach diesen beurteilt. --stats nimmt diese Grenzen aus --settings DATEI.</translation>
    </message>
    <message>
        <source>%1 Usual: %2.</source>
        <translation>%1 Üblich: %2.</translation>
    </message>
    <message>
        <source>Usua&amp;l limits</source>
        <translation>Ü&amp;bliche Grenzen</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is poor.</source>
        <translation>Ein Fit, dessen Residuen (RMS über Spitze) größer sind, ist schlecht.</translation>
    </message>
    <message>
        <source>A fit is poor if this much of the charge lies in dead, hot or saturated cells.</source>
        <translation>Ein Fit ist schlecht, wenn so viel der Ladung in toten, heißen oder gesättigten Zellen liegt.</translation>
    </message>
    <message>
        <source>An estimate that does not subtract a background this large, over the peak, is poor.</source>
        <translation>Eine Schätzung, die einen so großen Untergrund (über Spitze) nicht abzieht, ist schlecht.</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is not valid.</source>
        <translation>Ein Fit, dessen Residuen (RMS über Spitze) größer sind, ist nicht gültig.</translation>
    </message>
    <message>
        <source>A result with a wider sigma, over the length of the detector, is not valid.</source>
        <translation>Ein Ergebnis mit größerem Sigma, bezogen auf die Länge des Detektors, ist nicht gültig.</translation>
    </message>
    <message>
        <source>A peak that is lower than this many times the noise is not taken for a beam.</source>
        <translation>Eine Spitze, die kleiner als so viele Rauschbreiten ist, gilt nicht als Strahl.</translation>
    </message>
</context>
<context>
    <name>Monitor::ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;nsicht</translation>
    </message>
    <message>
        <source>Values and cha&amp;nnels</source>
        <translation>&amp;Werte und Kanäle</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>&amp;Time span</source>
        <translation>Ze&amp;itspanne</translation>
    </message>
    <message>
        <source>&amp;Strip chart</source>
        <translation>V&amp;erlauf</translation>
    </message>
    <message>
        <source>S&amp;cope</source>
        <translation>S&amp;cope</translation>
    </message>
    <message>
        <source>&amp;Histogram</source>
        <translation>&amp;Histogramm</translation>
    </message>
    <message>
        <source>2D pro&amp;file</source>
        <translation>2&amp;D-Profil</translation>
    </message>
    <message>
        <source>P&amp;osition</source>
        <translation>P&amp;osition</translation>
    </message>
    <message>
        <source>Spot &amp;map</source>
        <translation>&amp;Spotkarte</translation>
    </message>
    <message>
        <source>Position &amp;errors</source>
        <translation>&amp;Positionsfehler</translation>
    </message>
    <message>
        <source>F&amp;ull screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Big numbers</source>
        <translation>&amp;Große Zahlen</translation>
    </message>
</context>
<context>
    <name>TangoText</name>
    <message>
        <source>&quot;%1&quot; should be tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, with #dbase=no at its end where HOST:PORT is a device server, not a database</source>
        <translation>„%1“ sollte tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE sein, mit #dbase=no am Ende, wenn HOST:PORT ein Geräteserver ist und keine Datenbank</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 attributes; a window shows %3 at most</source>
        <translation>„%1“ nennt %2 Attribute; ein Fenster zeigt höchstens %3</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?every=100ms may follow the attributes, with a time from 1 ms to 60 min</source>
        <translation>„%1“: nach den Attributen darf nur ?every=100ms stehen, mit einer Zeit von 1 ms bis 60 min</translation>
    </message>
    <message>
        <source>an error without a description</source>
        <translation>ein Fehler ohne Beschreibung</translation>
    </message>
    <message>
        <source>%1 does not answer in time</source>
        <translation>%1 antwortet nicht rechtzeitig</translation>
    </message>
    <message>
        <source>there is no device %1</source>
        <translation>es gibt kein Gerät %1</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>kein Server antwortet für %1</translation>
    </message>
    <message>
        <source>%1 is an image of %2 x %3 values; a window shows at most %4 x %4</source>
        <translation>%1 ist ein Bild aus %2 x %3 Werten; ein Fenster zeigt höchstens %4 x %4</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 hat %2 Werte; ein Fenster zeigt höchstens %3</translation>
    </message>
    <message>
        <source>its values cannot be read as numbers</source>
        <translation>seine Werte können nicht als Zahlen gelesen werden</translation>
    </message>
    <message>
        <source>Check the names, that the device server runs, and that the address ends with #dbase=no if its host and port are those of a device server.</source>
        <translation>Prüfen, ob die Namen stimmen, ob der Geräteserver läuft und ob die Adresse mit #dbase=no endet, wenn Host und Port die eines Geräteservers sind.</translation>
    </message>
    <message>
        <source>%1, without %2, which has no valid value</source>
        <translation>%1, ohne %2 (kein gültiger Wert)</translation>
    </message>
    <message>
        <source>%1 is of the type %2, not a number</source>
        <translation>%1 ist vom Typ %2, keine Zahl</translation>
    </message>
    <message>
        <source>a window shows scalars, or one spectrum or two, or one image; read the others in a window of their own</source>
        <translation>ein Fenster zeigt Skalare, oder ein oder zwei Spektren, oder ein Bild; die anderen in einem eigenen Fenster lesen</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names the attribute %2 twice</source>
        <translation>„%1“ nennt das Attribut %2 zweimal</translation>
    </message>
    <message>
        <source>%1 does not tell what its attributes are</source>
        <translation>%1 sagt nicht, was seine Attribute sind</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tango:DOMAIN/FAMILY/MEMBER, a device that is defined in the database, or tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, which is served at that address without a database</source>
        <translation>„%1“ sollte tango:DOMAIN/FAMILY/MEMBER sein, ein Gerät, das in der Datenbank definiert ist, oder tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, das unter dieser Adresse ohne Datenbank bedient wird</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 ist zweimal angegeben</translation>
    </message>
    <message>
        <source>all devices of a run belong to one server, with the same host and port</source>
        <translation>alle Geräte eines Laufs gehören zu einem Server, mit demselben Rechner und Port</translation>
    </message>
    <message>
        <source>the database has no device %1; define it with: tango_admin --add-server %2/%3 CorvaleMonitor %1</source>
        <translation>die Datenbank hat kein Gerät %1; so wird es definiert: tango_admin --add-server %2/%3 CorvaleMonitor %1</translation>
    </message>
    <message>
        <source>the device %1 belongs to the server %2, not to %3</source>
        <translation>das Gerät %1 gehört zum Server %2, nicht zu %3</translation>
    </message>
    <message>
        <source>the database has %1 and %2 in different servers; one run serves one of them</source>
        <translation>in der Datenbank gehören %1 und %2 zu verschiedenen Servern; ein Lauf bedient einen davon</translation>
    </message>
    <message>
        <source>another program serves %1 already</source>
        <translation>ein anderes Programm bedient %1 bereits</translation>
    </message>
    <message>
        <source>the database does not answer: %1</source>
        <translation>die Datenbank antwortet nicht: %1</translation>
    </message>
    <message>
        <source>nothing can listen at %1:%2: another program does, or the host is not this computer</source>
        <translation>unter %1:%2 kann nicht gehorcht werden: ein anderes Programm tut es, oder der Rechner ist nicht dieser</translation>
    </message>
    <message>
        <source>the server does not have all of the devices</source>
        <translation>der Server hat nicht alle Geräte</translation>
    </message>
    <message>
        <source>the database does not answer in time</source>
        <translation>die Datenbank antwortet nicht rechtzeitig</translation>
    </message>
</context>
</TS>
