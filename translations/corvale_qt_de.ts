<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Corvale_Qt</name>
    <message>
        <source>cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>the numbers are too large to be shown</source>
        <translation>die Zahlen sind zu groß für die Anzeige</translation>
    </message>
    <message>
        <source>the fit failed</source>
        <translation>der Fit ist misslungen</translation>
    </message>
    <message>
        <source>is not a usable length</source>
        <translation>ist keine brauchbare Länge</translation>
    </message>
    <message>
        <source>%1 follows %2: positions must rise, or fall, without repeating</source>
        <translation>%1 folgt auf %2: Positionen müssen steigen oder fallen, ohne sich zu wiederholen</translation>
    </message>
    <message>
        <source>is not above 0</source>
        <translation>ist nicht größer als 0</translation>
    </message>
    <message>
        <source>overlaps the cell before it</source>
        <translation>überlappt die Zelle davor</translation>
    </message>
    <message>
        <source>must be between 0 and %1</source>
        <translation>muss zwischen 0 und %1 liegen</translation>
    </message>
    <message>
        <source>is not a text of at most %1 characters</source>
        <translation>ist kein Text mit höchstens %1 Zeichen</translation>
    </message>
    <message>
        <source>is stated beside positions</source>
        <translation>ist neben Positionen angegeben</translation>
    </message>
    <message>
        <source>more than 100 %</source>
        <translation>mehr als 100 %</translation>
    </message>
    <message>
        <source>no peak above %1 times the noise</source>
        <translation>kein Maximum über dem %1-Fachen des Rauschens</translation>
    </message>
    <message>
        <source>%1 of the charge lies in dead, hot or saturated cells</source>
        <translation>%1 der Ladung liegt in toten, heißen oder gesättigten Zellen</translation>
    </message>
    <message>
        <source>the position lies outside of the detector</source>
        <translation>die Strahllage liegt außerhalb des Detektors</translation>
    </message>
    <message>
        <source>sigma does not fit on the detector</source>
        <translation>Sigma ist größer, als der Detektor zulässt</translation>
    </message>
    <message>
        <source>no cell shows whether a Gaussian describes the readings</source>
        <translation>keine Zelle zeigt, ob eine Gauß-Kurve die Messwerte beschreibt</translation>
    </message>
    <message>
        <source>the residuals are %1 of the peak</source>
        <translation>die Residuen betragen %1 des Maximums</translation>
    </message>
    <message>
        <source>R2 is %1</source>
        <translation>R2 ist %1</translation>
    </message>
    <message>
        <source>a background of %1 of the peak is not subtracted, and widens sigma</source>
        <translation>ein Untergrund von %1 des Maximums ist nicht abgezogen und verbreitert Sigma</translation>
    </message>
    <message>
        <source>the beam is at the edge of the detector</source>
        <translation>der Strahl liegt am Rand des Detektors</translation>
    </message>
    <message>
        <source>%1 of the charge lies outside of the detector</source>
        <translation>%1 der Ladung liegt außerhalb des Detektors</translation>
    </message>
    <message>
        <source>the area of integration was cut at the edge of the detector</source>
        <translation>der Integrationsbereich ist am Rand des Detektors abgeschnitten</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>DATEN GÜLTIG</translation>
    </message>
    <message>
        <source>DATA VALID, FIT POOR</source>
        <translation>DATEN GÜLTIG, FIT SCHLECHT</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>DATEN UNGÜLTIG</translation>
    </message>
    <message>
        <source>the readings or their positions are not usable</source>
        <translation>die Messwerte oder ihre Positionen sind unbrauchbar</translation>
    </message>
    <message>
        <source>there are not enough cells</source>
        <translation>es sind zu wenige Zellen</translation>
    </message>
    <message>
        <source>there is no charge above the background</source>
        <translation>keine Ladung über dem Untergrund</translation>
    </message>
    <message>
        <source>the peak lies at the edge of the detector</source>
        <translation>das Maximum liegt am Rand des Detektors</translation>
    </message>
    <message>
        <source>the width is not a real number</source>
        <translation>die Breite ist keine reelle Zahl</translation>
    </message>
    <message>
        <source>the iteration did not converge</source>
        <translation>die Iteration ist nicht konvergiert</translation>
    </message>
    <message>
        <source>no Gaussian: the beam is flat-topped</source>
        <translation>keine Gauß-Kurve: das Strahlprofil hat ein Plateau</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>there is no such channel</source>
        <translation>diesen Kanal gibt es nicht</translation>
    </message>
    <message>
        <source>must be the version, 1</source>
        <translation>muss die Version sein, 1</translation>
    </message>
    <message>
        <source>the text is longer than %1 MiB</source>
        <translation>der Text ist länger als %1 MiB</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is given twice, or with a backslash</source>
        <translation>der Schlüssel „%1“ ist zweimal oder mit einem Backslash angegeben</translation>
    </message>
    <message>
        <source>this is not an object in braces</source>
        <translation>das ist kein Objekt in geschweiften Klammern</translation>
    </message>
    <message>
        <source>a matrix has rows and columns</source>
        <translation>eine Matrix hat Zeilen und Spalten</translation>
    </message>
    <message>
        <source>a list of channels has no axes</source>
        <translation>eine Liste von Kanälen hat keine Achsen</translation>
    </message>
    <message>
        <source>the strips of neither x nor y are stated</source>
        <translation>weder die Streifen von x noch die von y sind angegeben</translation>
    </message>
    <message>
        <source>there is no reading %1</source>
        <translation>es gibt keinen Messwert %1</translation>
    </message>
    <message>
        <source>reading %1 is wired twice</source>
        <translation>Messwert %1 ist zweimal verdrahtet</translation>
    </message>
    <message>
        <source>is 0 or not a usable number</source>
        <translation>ist 0 oder keine brauchbare Zahl</translation>
    </message>
    <message>
        <source>is not a usable number</source>
        <translation>ist keine brauchbare Zahl</translation>
    </message>
    <message>
        <source>must be between 1 and %1</source>
        <translation>muss zwischen 1 und %1 liegen</translation>
    </message>
    <message>
        <source>positions in cells</source>
        <translation>Positionen in Zellen</translation>
    </message>
    <message>
        <source>no detector</source>
        <translation>kein Detektor</translation>
    </message>
    <message>
        <source>strips %1 + %2, %3</source>
        <translation>Streifen %1 + %2, %3</translation>
    </message>
    <message>
        <source>matrix %1 x %2, %3</source>
        <translation>Matrix %1 x %2, %3</translation>
    </message>
    <message>
        <source>number %1, &quot;%2&quot;, is not a number</source>
        <translation>Zahl %1, „%2“, ist keine Zahl</translation>
    </message>
    <message>
        <source>the numbers are missing</source>
        <translation>die Zahlen fehlen</translation>
    </message>
    <message>
        <source>the pitch is not a number above 0</source>
        <translation>der Zellabstand ist keine Zahl größer als 0</translation>
    </message>
    <message>
        <source>the offset is not a number</source>
        <translation>der Versatz ist keine Zahl</translation>
    </message>
    <message>
        <source>the direction is neither forward nor reverse</source>
        <translation>die Richtung ist weder forward noch reverse</translation>
    </message>
    <message>
        <source>two numbers of cells must follow strips or matrix</source>
        <translation>auf strips oder matrix müssen zwei Zellenzahlen folgen</translation>
    </message>
    <message>
        <source>there is no channel %1; channels are counted from 1</source>
        <translation>es gibt keinen Kanal %1; Kanäle werden ab 1 gezählt</translation>
    </message>
    <message>
        <source>the noise is not a number above 0</source>
        <translation>das Rauschen ist keine Zahl größer als 0</translation>
    </message>
    <message>
        <source>nothing may follow</source>
        <translation>danach darf nichts folgen</translation>
    </message>
    <message>
        <source>there is no channel %1</source>
        <translation>es gibt keinen Kanal %1</translation>
    </message>
    <message>
        <source>character %1: %2</source>
        <translation>Zeichen %1: %2</translation>
    </message>
    <message>
        <source>there is no expression</source>
        <translation>der Ausdruck fehlt</translation>
    </message>
    <message>
        <source>the expression ends too early</source>
        <translation>der Ausdruck endet zu früh</translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation>eine Klammer ist nicht geschlossen</translation>
    </message>
    <message>
        <source>this parenthesis has no counterpart, or nothing in it</source>
        <translation>diese Klammer hat kein Gegenstück oder keinen Inhalt</translation>
    </message>
    <message>
        <source>the function has too many arguments</source>
        <translation>die Funktion hat zu viele Argumente</translation>
    </message>
    <message>
        <source>the function has too few arguments</source>
        <translation>die Funktion hat zu wenige Argumente</translation>
    </message>
    <message>
        <source>a value is missing before this operator</source>
        <translation>vor diesem Operator fehlt ein Wert</translation>
    </message>
    <message>
        <source>an operator is missing before this</source>
        <translation>davor fehlt ein Operator</translation>
    </message>
    <message>
        <source>this comma does not separate the arguments of a function</source>
        <translation>dieses Komma trennt keine Argumente einer Funktion</translation>
    </message>
    <message>
        <source>&quot;?&quot; and &quot;:&quot; do not belong together here</source>
        <translation>„?“ und „:“ gehören hier nicht zusammen</translation>
    </message>
    <message>
        <source>this cannot be understood</source>
        <translation>das ist unverständlich</translation>
    </message>
    <message>
        <source>The channels belong to several planes.</source>
        <translation>Die Kanäle gehören zu mehreren Ebenen.</translation>
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
    <message>
        <source>all</source>
        <translation>alles</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: a time span is at least %2 and at most %3.</source>
        <translation>„%1“: Eine Zeitspanne ist mindestens %2 und höchstens %3 lang.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time span. Examples: 90 s, 2 h, 1.5 min, 250 ms, all.</source>
        <translation>„%1“ ist keine Zeitspanne. Beispiele: 90 s, 2 h, 1.5 min, 250 ms, alles.</translation>
    </message>
    <message>
        <source>is not a number from 0 on</source>
        <translation>ist keine Zahl ab 0</translation>
    </message>
    <message>
        <source>all other cells read 0: hot, or a beam narrower than a cell</source>
        <translation>alle anderen Zellen lesen 0: heiß, oder ein Strahl schmaler als eine Zelle</translation>
    </message>
    <message>
        <source>%1, then %2</source>
        <comment>UTC+1, then UTC+2</comment>
        <translation>%1, dann %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>UTC+1 or UTC+2</comment>
        <translation>%1 oder %2</translation>
    </message>
    <message numerus="yes">
        <source> frame(s)</source>
        <translation>
            <numerusform> Bild</numerusform>
            <numerusform> Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>average of %n frame(s)</source>
        <translation>
            <numerusform>Mittel über %n Bild</numerusform>
            <numerusform>Mittel über %n Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>taking the background: %n frame(s) to come</source>
        <translation>
            <numerusform>Untergrund wird aufgenommen: noch %n Bild</numerusform>
            <numerusform>Untergrund wird aufgenommen: noch %n Bilder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) subtracted</source>
        <translation>
            <numerusform>Untergrund aus %n Bild abgezogen</numerusform>
            <numerusform>Untergrund aus %n Bildern abgezogen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) not subtracted</source>
        <translation>
            <numerusform>Untergrund aus %n Bild nicht abgezogen</numerusform>
            <numerusform>Untergrund aus %n Bildern nicht abgezogen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong to no cell: %1 left out</source>
        <translation>
            <numerusform>%n Messwert gehört zu keiner Zelle: %1 bleiben unberücksichtigt</numerusform>
            <numerusform>%n Messwerte gehören zu keiner Zelle: %1 bleiben unberücksichtigt</numerusform>
        </translation>
    </message>
    <message>
        <source>has %1 for %2</source>
        <translation>hat %1 für %2</translation>
    </message>
    <message numerus="yes">
        <source>%n width(s)</source>
        <translation>
            <numerusform>%n Breite</numerusform>
            <numerusform>%n Breiten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s)</source>
        <translation>
            <numerusform>%n Zelle</numerusform>
            <numerusform>%n Zellen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n position(s)</source>
        <translation>
            <numerusform>%n Position</numerusform>
            <numerusform>%n Positionen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n number(s)</source>
        <translation>
            <numerusform>%n Zahl</numerusform>
            <numerusform>%n Zahlen</numerusform>
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
        <source>%n name(s)</source>
        <translation>
            <numerusform>%n Name</numerusform>
            <numerusform>%n Namen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not the number of a reading</source>
        <translation>%1 ist nicht die Nummer eines Messwerts</translation>
    </message>
    <message>
        <source>there are fewer readings (%1) than cells (%2)</source>
        <translation>es gibt weniger Messwerte (%1) als Zellen (%2)</translation>
    </message>
    <message numerus="yes">
        <source>%n entry/entries</source>
        <translation>
            <numerusform>%n Eintrag</numerusform>
            <numerusform>%n Einträge</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s)</source>
        <translation>
            <numerusform>%n Kanal</numerusform>
            <numerusform>%n Kanäle</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the detector has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>der Detektor hat %n Messwert, der Datenstrom %1</numerusform>
            <numerusform>der Detektor hat %n Messwerte, der Datenstrom %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1
%n sample(s) would go.</source>
        <translation>
            <numerusform>%1
%n Messwert ginge verloren.</numerusform>
            <numerusform>%1
%n Messwerte gingen verloren.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::AxisLine</name>
    <message>
        <source>the unit is missing</source>
        <translation>die Einheit fehlt</translation>
    </message>
    <message>
        <source>the unit is %1, but %2 before</source>
        <translation>die Einheit ist %1, war aber %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ChannelExpressionsPrivate</name>
    <message>
        <source>the computed channel has no name</source>
        <translation>der berechnete Kanal hat keinen Namen</translation>
    </message>
    <message>
        <source>there is already a channel called &quot;%1&quot;</source>
        <translation>es gibt schon einen Kanal namens „%1“</translation>
    </message>
    <message>
        <source>the expression is too long</source>
        <translation>der Ausdruck ist zu lang</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is computed from itself</source>
        <translation>„%1“ wird aus sich selbst berechnet</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorControls</name>
    <message>
        <source>Detector</source>
        <translation>Detektor</translation>
    </message>
    <message>
        <source>Logarithmic colours</source>
        <translation>Logarithmische Farben</translation>
    </message>
    <message>
        <source>Projections</source>
        <translation>Projektionen</translation>
    </message>
    <message>
        <source>Colours from</source>
        <translation>Farben von</translation>
    </message>
    <message>
        <source>Subtract background</source>
        <translation>Untergrund abziehen</translation>
    </message>
    <message>
        <source>Centre of gravity</source>
        <translation>Schwerpunkt</translation>
    </message>
    <message>
        <source>Three points</source>
        <translation>Drei Punkte</translation>
    </message>
    <message>
        <source>Regression</source>
        <translation>Regression</translation>
    </message>
    <message>
        <source>Least squares</source>
        <translation>Kleinste Quadrate</translation>
    </message>
    <message>
        <source>Half maximum</source>
        <translation>Halbwertsbreite</translation>
    </message>
    <message>
        <source>Second moment</source>
        <translation>Zweites Moment</translation>
    </message>
    <message>
        <source>How mean and sigma are found</source>
        <translation>Wie Mittelwert und Sigma bestimmt werden</translation>
    </message>
    <message>
        <source>Averaged frames</source>
        <translation>Gemittelte Bilder</translation>
    </message>
    <message>
        <source>Frames of the background</source>
        <translation>Bilder für den Untergrund</translation>
    </message>
    <message>
        <source>Lowest value of the colours</source>
        <translation>Kleinster Wert der Farben</translation>
    </message>
    <message>
        <source>Highest value of the colours</source>
        <translation>Größter Wert der Farben</translation>
    </message>
    <message>
        <source>Take background</source>
        <translation>Untergrund aufnehmen</translation>
    </message>
    <message>
        <source>Estimator</source>
        <translation>Schätzer</translation>
    </message>
    <message>
        <source>to</source>
        <translation>bis</translation>
    </message>
    <message>
        <source>Average of</source>
        <translation>Mittel über</translation>
    </message>
    <message>
        <source>Clear background</source>
        <translation>Untergrund verwerfen</translation>
    </message>
    <message>
        <source>Show the whole detector</source>
        <translation>Ganzen Detektor zeigen</translation>
    </message>
    <message>
        <source>Save the frame as CSV…</source>
        <translation>Bild als CSV speichern …</translation>
    </message>
    <message>
        <source>Save a picture…</source>
        <translation>Grafik speichern …</translation>
    </message>
    <message>
        <source>Save a picture</source>
        <translation>Grafik speichern</translation>
    </message>
    <message>
        <source>Save the frame</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Grafiken (*.png)</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>Fehler beim Speichern der Datendatei.</translation>
    </message>
    <message>
        <source>Least squares, linear background</source>
        <translation>Kleinste Quadrate, linearer Untergrund</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorFault</name>
    <message>
        <source>line %1, %2</source>
        <translation>Zeile %1, %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HeldMark</name>
    <message>
        <source>Held</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Live</translation>
    </message>
    <message>
        <source>The picture stands still while readings come. Show the newest ones again (End).</source>
        <translation>Das Bild steht still, während Messwerte kommen. Wieder die neuesten zeigen (Ende).</translation>
    </message>
    <message>
        <source>Y zoomed</source>
        <translation>Y vergrößert</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Ganz</translation>
    </message>
    <message>
        <source>The y axis shows a part of its scale. Show the whole scale again (End).</source>
        <translation>Die y-Achse zeigt nur einen Teil ihrer Skala. Wieder die ganze Skala zeigen (Ende).</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HistogramPlaces</name>
    <message>
        <source>cells</source>
        <translation>Zellen</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HoverCursor</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und noch %n</numerusform>
            <numerusform>und noch %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::JsonMembers</name>
    <message>
        <source>is not a number</source>
        <translation>ist keine Zahl</translation>
    </message>
    <message>
        <source>is not a whole number from 0 to %1</source>
        <translation>ist keine ganze Zahl von 0 bis %1</translation>
    </message>
    <message>
        <source>is neither true nor false</source>
        <translation>ist weder true noch false</translation>
    </message>
    <message>
        <source>is not a text</source>
        <translation>ist kein Text</translation>
    </message>
    <message>
        <source>there are too many items</source>
        <translation>es sind zu viele Einträge</translation>
    </message>
    <message>
        <source>is not a list of numbers</source>
        <translation>ist keine Liste von Zahlen</translation>
    </message>
    <message>
        <source>is not a list of texts</source>
        <translation>ist keine Liste von Texten</translation>
    </message>
    <message>
        <source>is none of: %1</source>
        <translation>ist keines von: %1</translation>
    </message>
    <message>
        <source>is not an object in braces</source>
        <translation>ist kein Objekt in geschweiften Klammern</translation>
    </message>
    <message>
        <source>is not a known key</source>
        <translation>ist kein bekannter Schlüssel</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LayoutView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensität</translation>
    </message>
    <message>
        <source>Intensity (%1)</source>
        <translation>Intensität (%1)</translation>
    </message>
    <message>
        <source>not wired</source>
        <translation>nicht verdrahtet</translation>
    </message>
    <message>
        <source>channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>dead</source>
        <translation>tot</translation>
    </message>
    <message>
        <source>saturated</source>
        <translation>gesättigt</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LegendModel</name>
    <message>
        <source>High warning</source>
        <translation>Warnung oben</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>Warnung unten</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>Alarm unten</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>Alarm oben</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: click or press Enter to hide or show it</source>
        <translation>%1: Klick oder Eingabetaste blendet ihn aus oder ein</translation>
    </message>
    <message>
        <source>%1, right axis</source>
        <translation>%1, rechte Achse</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::MeanTimePlot</name>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
    </message>
    <message>
        <source>Position (mm)</source>
        <translation>Position (mm)</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>Mittel X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>Mittel Y</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::PlotDataExport</name>
    <message>
        <source>there are no rows to save</source>
        <translation>es gibt keine Zeilen zu speichern</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXAbstractDeviceDataModel</name>
    <message>
        <source>Time (s)</source>
        <translation>Zeit (s)</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXComputedChannelsProxyModel</name>
    <message>
        <source>no reading</source>
        <translation>kein Messwert</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLatestPlotDataProxyModel</name>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Data (%1)</source>
        <translation>Daten (%1)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLogBrowser</name>
    <message>
        <source>widget title</source>
        <translation>Titel des Felds</translation>
    </message>
    <message>
        <source>log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>clear log contents</source>
        <translation>Protokoll leeren</translation>
    </message>
    <message>
        <source>clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXMultichannelDeviceModel</name>
    <message>
        <source>no reading</source>
        <translation>kein Messwert</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPopOutTabWidget</name>
    <message>
        <source>Put back into its tab</source>
        <translation>In seinen Reiter zurück</translation>
    </message>
    <message>
        <source>Open &quot;%1&quot; in a window</source>
        <translation>„%1“ in einem Fenster öffnen</translation>
    </message>
    <message>
        <source>Put &quot;%1&quot; back</source>
        <translation>„%1“ zurückholen</translation>
    </message>
    <message>
        <source>Put all back</source>
        <translation>Alle zurückholen</translation>
    </message>
    <message>
        <source>All pages are in separate windows.
Close a window to put its page back.</source>
        <translation>Alle Seiten sind in eigenen Fenstern.
Wird ein Fenster geschlossen, kommt seine Seite zurück.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionErrorPlot</name>
    <message>
        <source>Mean Error (X, Y):</source>
        <translation>Mittlerer Fehler (X, Y):</translation>
    </message>
    <message>
        <source>Mean of the X errors</source>
        <translation>Mittel der X-Fehler</translation>
    </message>
    <message>
        <source>Mean of the Y errors</source>
        <translation>Mittel der Y-Fehler</translation>
    </message>
    <message>
        <source>(mm)</source>
        <translation>(mm)</translation>
    </message>
    <message>
        <source>Energy:</source>
        <translation>Energie:</translation>
    </message>
    <message>
        <source>Beam energy of the newest spot</source>
        <translation>Strahlenergie des neuesten Spots</translation>
    </message>
    <message>
        <source>(MeV)</source>
        <translation>(MeV)</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n. v.</translation>
    </message>
    <message>
        <source>Spot Position Error</source>
        <translation>Positionsfehler der Spots</translation>
    </message>
    <message>
        <source>X Error (mm)</source>
        <translation>X-Fehler (mm)</translation>
    </message>
    <message>
        <source>Y Error (mm)</source>
        <translation>Y-Fehler (mm)</translation>
    </message>
    <message>
        <source>no spots</source>
        <translation>keine Spots</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>Spots: %1</translation>
    </message>
    <message>
        <source>outside of the tolerance: %1</source>
        <translation>außerhalb der Toleranz: %1</translation>
    </message>
    <message>
        <source>mean X error %1 mm; mean Y error %2 mm</source>
        <translation>mittlerer X-Fehler %1 mm; mittlerer Y-Fehler %2 mm</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionPlot</name>
    <message>
        <source>no beam</source>
        <translation>kein Strahl</translation>
    </message>
    <message>
        <source>Y Position</source>
        <translation>Y-Position</translation>
    </message>
    <message>
        <source>X Position</source>
        <translation>X-Position</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>no position yet</source>
        <translation>noch keine Position</translation>
    </message>
    <message>
        <source>newest position</source>
        <translation>neueste Position</translation>
    </message>
    <message>
        <source>position not valid</source>
        <translation>Position nicht gültig</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScope</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Plot mode</source>
        <translation>Darstellung</translation>
    </message>
    <message>
        <source>What is plotted: the newest samples scrolling by, one sweep after the other, or the newest sample of each channel as a bar.</source>
        <translation>Was gezeigt wird: die neuesten Messwerte als laufender Verlauf, ein Durchlauf nach dem anderen, oder der neueste Messwert jedes Kanals als Balken.</translation>
    </message>
    <message>
        <source>State of the data</source>
        <translation>Zustand der Daten</translation>
    </message>
    <message>
        <source>What is done to the data before it is shown.</source>
        <translation>Was mit den Daten geschieht, bevor sie gezeigt werden.</translation>
    </message>
    <message>
        <source>Number of data samples collected, up to 100000.</source>
        <translation>Anzahl der gesammelten Messwerte, höchstens 100000.</translation>
    </message>
    <message>
        <source>0 Samples</source>
        <translation>0 Messwerte</translation>
    </message>
    <message>
        <source>Clear the data buffer.</source>
        <translation>Datenpuffer leeren.</translation>
    </message>
    <message>
        <source>Clears the data buffer: all samples collected so far are dropped. Shortcut: Ctrl+L.</source>
        <translation>Leert den Datenpuffer: Alle bisher gesammelten Messwerte werden verworfen. Taste: Strg+L.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Save the data buffer to a file.</source>
        <translation>Datenpuffer in einer Datei speichern.</translation>
    </message>
    <message>
        <source>Saves the data buffer to a file, as it was measured: neither averaged nor zeroed. Shortcut: Ctrl+S.</source>
        <translation>Speichert den Datenpuffer so, wie er gemessen wurde: weder gemittelt noch genullt. Taste: Strg+S.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Show controls</source>
        <translation>Bedienfeld zeigen</translation>
    </message>
    <message>
        <source>Shows or hides the controls of the plot and of the acquisition.</source>
        <translation>Blendet die Bedienelemente von Diagramm und Erfassung ein oder aus.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Y range</source>
        <translation>Y-Bereich</translation>
    </message>
    <message>
        <source>Y:</source>
        <translation>Y:</translation>
    </message>
    <message>
        <source>Set the range of the Y axis.</source>
        <translation>Bereich der Y-Achse einstellen.</translation>
    </message>
    <message>
        <source>Set the Y axis to start at 0.</source>
        <translation>Y-Achse bei 0 beginnen lassen.</translation>
    </message>
    <message>
        <source>Positive Y range only</source>
        <translation>Nur positiver Y-Bereich</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Running average</source>
        <translation>Gleitendes Mittel</translation>
    </message>
    <message>
        <source>Apply running average to all data.</source>
        <translation>Gleitendes Mittel auf alle Daten anwenden.</translation>
    </message>
    <message>
        <source>No Avg</source>
        <translation>Kein Mittel</translation>
    </message>
    <message>
        <source>10x Avg</source>
        <translation>10x Mittel</translation>
    </message>
    <message>
        <source>100x Avg</source>
        <translation>100x Mittel</translation>
    </message>
    <message>
        <source>1000x Avg</source>
        <translation>1000x Mittel</translation>
    </message>
    <message>
        <source>Display derivative data.</source>
        <translation>Ableitung der Daten zeigen.</translation>
    </message>
    <message>
        <source>Derivative</source>
        <translation>Ableitung</translation>
    </message>
    <message>
        <source>d/dx</source>
        <translation>d/dx</translation>
    </message>
    <message>
        <source>Subtract current values from all data.</source>
        <translation>Aktuelle Werte von allen Daten abziehen.</translation>
    </message>
    <message>
        <source>Subtracts the current value of each channel from all of its data. What is saved is not changed. Shortcut: Ctrl+0.</source>
        <translation>Zieht den aktuellen Wert jedes Kanals von allen seinen Daten ab. Gespeicherte Daten ändern sich nicht. Taste: Strg+0.</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Undo zero subtraction.</source>
        <translation>Nullung aufheben.</translation>
    </message>
    <message>
        <source>Undo zero subtraction</source>
        <translation>Nullung aufheben</translation>
    </message>
    <message>
        <source>Shows the data as it was measured again. Green while a zero is subtracted.</source>
        <translation>Zeigt die Daten wieder, wie sie gemessen wurden. Grün, solange ein Nullwert abgezogen wird.</translation>
    </message>
    <message>
        <source>Acquisition period</source>
        <translation>Erfassungsperiode</translation>
    </message>
    <message>
        <source>Period </source>
        <translation>Periode </translation>
    </message>
    <message>
        <source>Time from one sample to the next. A change clears the data buffer.</source>
        <translation>Zeit von einem Messwert zum nächsten. Eine Änderung leert den Datenpuffer.</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>100 ms</source>
        <translation>100 ms</translation>
    </message>
    <message>
        <source>1 s</source>
        <translation>1 s</translation>
    </message>
    <message>
        <source>10 s</source>
        <translation>10 s</translation>
    </message>
    <message>
        <source>Has the instrument collect samples for an interval and hand them over together.</source>
        <translation>Lässt das Gerät Messwerte über ein Intervall sammeln und gemeinsam übergeben.</translation>
    </message>
    <message>
        <source>Buffered Interval</source>
        <translation>Gepuffertes Intervall</translation>
    </message>
    <message>
        <source>Buffered interval in seconds</source>
        <translation>Gepuffertes Intervall in Sekunden</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Remove the samples</source>
        <translation>Messwerte &amp;verwerfen</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Periode</translation>
    </message>
    <message>
        <source>Another period begins with an empty buffer.</source>
        <translation>Eine andere Periode beginnt mit leerem Puffer.</translation>
    </message>
    <message>
        <source>Strip</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Scope</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>2D</source>
        <translation>2D</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Geteilt</translation>
    </message>
    <message>
        <source>Plot mode: %1</source>
        <translation>Darstellung: %1</translation>
    </message>
    <message>
        <source>Save Data File</source>
        <translation>Datendatei speichern</translation>
    </message>
    <message>
        <source>CSV File (*.csv)</source>
        <translation>CSV-Datei (*.csv)</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>Daten speichern</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>Fehler beim Speichern der Datendatei.</translation>
    </message>
    <message>
        <source>All samples are removed from the buffer.</source>
        <translation>Alle Messwerte werden aus dem Puffer entfernt.</translation>
    </message>
    <message>
        <source>%1x Avg</source>
        <translation>%1x Mittel</translation>
    </message>
    <message>
        <source>Zeroed</source>
        <translation>Genullt</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normieren</translation>
    </message>
    <message>
        <source>Saving data</source>
        <translation>Daten werden gespeichert</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScopePlotView</name>
    <message>
        <source>no reading</source>
        <translation>kein Messwert</translation>
    </message>
    <message>
        <source>Marker 1</source>
        <translation>Marke 1</translation>
    </message>
    <message>
        <source>Marker 2</source>
        <translation>Marke 2</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Periode</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Delta</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Readings</source>
        <translation>Messwerte</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Fehlend</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittelwert</translation>
    </message>
    <message>
        <source>RMS</source>
        <translation>RMS</translation>
    </message>
    <message>
        <source>Std. Dev</source>
        <translation>Std.-Abw.</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>Integral</translation>
    </message>
    <message>
        <source>Covered</source>
        <translation>Erfasst</translation>
    </message>
    <message>
        <source>Slope</source>
        <translation>Steigung</translation>
    </message>
    <message>
        <source>Scope plot</source>
        <translation>Scope-Diagramm</translation>
    </message>
    <message>
        <source>%1 Samples</source>
        <translation>%1 Messwerte</translation>
    </message>
    <message>
        <source>Relative Value</source>
        <translation>Relativer Wert</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Zahlenwert</translation>
    </message>
    <message>
        <source>Not on a logarithmic axis, 0 or negative: %1</source>
        <translation>Nicht auf logarithmischer Achse, 0 oder negativ: %1</translation>
    </message>
    <message>
        <source>no readings</source>
        <translation>keine Messwerte</translation>
    </message>
    <message>
        <source>Time from the newest reading (%1)</source>
        <translation>Zeit ab dem neuesten Messwert (%1)</translation>
    </message>
    <message>
        <source>Time (local, %1)</source>
        <translation>Zeit (Ortszeit, %1)</translation>
    </message>
    <message>
        <source>Time (UTC)</source>
        <translation>Zeit (UTC)</translation>
    </message>
    <message>
        <source>the readings begin at %1</source>
        <translation>die Messwerte beginnen bei %1</translation>
    </message>
    <message>
        <source>%1 from the trigger</source>
        <translation>%1 ab dem Trigger</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und noch %n</numerusform>
            <numerusform>und noch %n</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, held</source>
        <translation>%1, angehalten</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1, live</translation>
    </message>
    <message>
        <source>kept in a block only</source>
        <translation>nur in einem Block erhalten</translation>
    </message>
    <message>
        <source>not known: older readings are kept in blocks</source>
        <translation>nicht bekannt: ältere Messwerte sind in Blöcken erhalten</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; two are shown)</source>
        <translation>Nicht gezeichnet: %1 (andere Einheit; zwei werden gezeigt)</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; one is shown)</source>
        <translation>Nicht gezeichnet: %1 (andere Einheit; eine wird gezeigt)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXSpectrogram</name>
    <message>
        <source>2D Plot</source>
        <translation>2D-Diagramm</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
    <message>
        <source>Calculations</source>
        <translation>Berechnungen</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>Mittel X</translation>
    </message>
    <message>
        <source>NaN</source>
        <translation>NaN</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>Mittel Y</translation>
    </message>
    <message>
        <source>σ X</source>
        <translation>σ X</translation>
    </message>
    <message>
        <source>σ Y</source>
        <translation>σ Y</translation>
    </message>
    <message>
        <source>σ Major</source>
        <translation>σ groß</translation>
    </message>
    <message>
        <source>σ Minor</source>
        <translation>σ klein</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>Elongation</source>
        <translation>Elongation</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>Integral</translation>
    </message>
    <message>
        <source> C</source>
        <translation> C</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max.</translation>
    </message>
    <message>
        <source>[+ Data Validity]</source>
        <translation>[+ Gültigkeit der Daten]</translation>
    </message>
    <message>
        <source>Display Options</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Beam Threshold</source>
        <translation>Strahlschwelle</translation>
    </message>
    <message>
        <source>Beam threshold</source>
        <translation>Strahlschwelle</translation>
    </message>
    <message>
        <source>Discriminator</source>
        <translation>Diskriminator</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Size of the ellipse</source>
        <translation>Größe der Ellipse</translation>
    </message>
    <message>
        <source> sigma</source>
        <translation> Sigma</translation>
    </message>
    <message>
        <source>Displacement Arrow</source>
        <translation>Pfeil der Ablage</translation>
    </message>
    <message>
        <source>Length of the arrow head</source>
        <translation>Länge der Pfeilspitze</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>X Origin</source>
        <translation>X-Ursprung</translation>
    </message>
    <message>
        <source>Y Origin</source>
        <translation>Y-Ursprung</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Invert X</source>
        <translation>X umkehren</translation>
    </message>
    <message>
        <source>Invert Y</source>
        <translation>Y umkehren</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normieren</translation>
    </message>
    <message>
        <source>100%</source>
        <translation>100%</translation>
    </message>
    <message>
        <source>50%</source>
        <translation>50%</translation>
    </message>
    <message>
        <source>20%</source>
        <translation>20%</translation>
    </message>
    <message>
        <source>10%</source>
        <translation>10%</translation>
    </message>
    <message>
        <source>5%</source>
        <translation>5%</translation>
    </message>
    <message>
        <source>2%</source>
        <translation>2%</translation>
    </message>
    <message>
        <source>1%</source>
        <translation>1%</translation>
    </message>
    <message>
        <source>0.5%</source>
        <translation>0.5%</translation>
    </message>
    <message>
        <source>0.2%</source>
        <translation>0.2%</translation>
    </message>
    <message>
        <source>0.1%</source>
        <translation>0.1%</translation>
    </message>
    <message>
        <source>.05%</source>
        <translation>.05%</translation>
    </message>
    <message>
        <source>.02%</source>
        <translation>.02%</translation>
    </message>
    <message>
        <source>.01%</source>
        <translation>.01%</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Greyscale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Viridis</source>
        <translation>Viridis</translation>
    </message>
    <message>
        <source>LR40-8 Plot</source>
        <translation>LR40-8-Diagramm</translation>
    </message>
    <message>
        <source>DW7/DW9 Plot</source>
        <translation>DW7/DW9-Diagramm</translation>
    </message>
    <message>
        <source>Position (%1)</source>
        <translation>Position (%1)</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>the maximum is below the threshold</source>
        <translation>das Maximum liegt unter der Schwelle</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n. v.</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>DATEN GÜLTIG</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>DATEN UNGÜLTIG</translation>
    </message>
    <message>
        <source> (and %1 more)</source>
        <translation> (und noch %1)</translation>
    </message>
    <message>
        <source>Beam profile</source>
        <translation>Strahlprofil</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXSplitPlot</name>
    <message>
        <source>Split %1</source>
        <translation>Split %1</translation>
    </message>
    <message>
        <source>no beam</source>
        <translation>kein Strahl</translation>
    </message>
    <message>
        <source>newest value</source>
        <translation>neuester Wert</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXStatisticsSetupPage</name>
    <message>
        <source>Data Analysis</source>
        <translation>Datenanalyse</translation>
    </message>
    <message>
        <source>Histogram Peak</source>
        <translation>Maximum im Histogramm</translation>
    </message>
    <message>
        <source>Number of peaks</source>
        <translation>Anzahl der Maxima</translation>
    </message>
    <message>
        <source>Peaks:</source>
        <translation>Maxima:</translation>
    </message>
    <message>
        <source>How many groups of channels are analysed, each with a peak of its own.</source>
        <translation>Wie viele Gruppen von Kanälen ausgewertet werden, jede mit eigenem Maximum.</translation>
    </message>
    <message>
        <source>Center of Gravity</source>
        <translation>Schwerpunkt</translation>
    </message>
    <message>
        <source>Center of gravity above a threshold</source>
        <translation>Schwerpunkt über einer Schwelle</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one count.</source>
        <translation>Nur Kanäle über diesem Anteil des höchsten zählen.</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <translation>Schwelle:</translation>
    </message>
    <message>
        <source>Threshold of the center of gravity in percent</source>
        <translation>Schwelle des Schwerpunkts in Prozent</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Center of gravity in a window</source>
        <translation>Schwerpunkt in einem Fenster</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one count.</source>
        <translation>Nur so viele Kanäle auf jeder Seite des höchsten zählen.</translation>
    </message>
    <message>
        <source>Window:</source>
        <translation>Fenster:</translation>
    </message>
    <message>
        <source>Window of the center of gravity in channels</source>
        <translation>Fenster des Schwerpunkts in Kanälen</translation>
    </message>
    <message>
        <source>Gaussian Fit (regression)</source>
        <translation>Gauß-Fit (Regression)</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one are fitted.</source>
        <translation>Nur Kanäle über diesem Anteil des höchsten gehen in den Fit ein.</translation>
    </message>
    <message>
        <source>Threshold of the fit in percent</source>
        <translation>Schwelle des Fits in Prozent</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one are fitted.</source>
        <translation>Nur so viele Kanäle auf jeder Seite des höchsten gehen in den Fit ein.</translation>
    </message>
    <message>
        <source>Window of the fit in channels</source>
        <translation>Fenster des Fits in Kanälen</translation>
    </message>
    <message>
        <source>Peak Threshold:</source>
        <translation>Schwelle des Maximums:</translation>
    </message>
    <message>
        <source>A peak lower than this is not fitted; in the base unit of the data.</source>
        <translation>Ein niedrigeres Maximum wird nicht gefittet; in der Basiseinheit der Daten.</translation>
    </message>
    <message>
        <source>Lowest peak that is fitted</source>
        <translation>Niedrigstes Maximum für den Fit</translation>
    </message>
    <message>
        <source>Sum Threshold:</source>
        <translation>Schwelle der Summe:</translation>
    </message>
    <message>
        <source>A profile whose sum is lower than this is not fitted; in the base unit of the data.</source>
        <translation>Ein Profil mit kleinerer Summe wird nicht gefittet; in der Basiseinheit der Daten.</translation>
    </message>
    <message>
        <source>Lowest sum that is fitted</source>
        <translation>Kleinste Summe für den Fit</translation>
    </message>
    <message>
        <source>Display Full Statistics</source>
        <translation>Vollständige Statistik zeigen</translation>
    </message>
    <message>
        <source>Shows skewness, kurtosis, signal-to-noise ratio and goodness of the fit too.</source>
        <translation>Zeigt auch Schiefe, Kurtosis, Signal-Rausch-Verhältnis und Güte des Fits.</translation>
    </message>
    <message>
        <source>Χ² Window:</source>
        <translation>Χ²-Fenster:</translation>
    </message>
    <message>
        <source>The fit is compared with this many channels on either side of the highest one.</source>
        <translation>Der Fit wird mit so vielen Kanälen auf jeder Seite des höchsten verglichen.</translation>
    </message>
    <message>
        <source>Chi-square window in channels</source>
        <translation>Chi-Quadrat-Fenster in Kanälen</translation>
    </message>
    <message>
        <source>resets the settings to the initial factory settings</source>
        <translation>setzt die Einstellungen auf die Werkseinstellungen zurück</translation>
    </message>
    <message>
        <source>factory reset</source>
        <translation>Werkseinstellungen</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_CoGHistogramItem</name>
    <message>
        <source>Center of Gravity</source>
        <translation>Schwerpunkt</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_FitHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>Gauß-Fit</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_GaussabolaHistogramItem</name>
    <message>
        <source>Gaussabola Fit</source>
        <translation>Gaussabola-Fit</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_PrecalculatedFitHistogramItem</name>
    <message>
        <source>Gaussian Fit (Device)</source>
        <translation>Gauß-Fit (Gerät)</translation>
    </message>
    <message>
        <source>Fit failed.</source>
        <translation>Fit misslungen.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_RegressionHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>Gauß-Fit</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_StatisticsHistogramItem</name>
    <message>
        <source>Not computed.</source>
        <translation>Nicht berechnet.</translation>
    </message>
    <message>
        <source>Not enough channels.</source>
        <translation>Zu wenige Kanäle.</translation>
    </message>
    <message>
        <source>Peak below threshold.</source>
        <translation>Maximum unter der Schwelle.</translation>
    </message>
    <message>
        <source>Peak on edge.</source>
        <translation>Maximum am Rand.</translation>
    </message>
    <message>
        <source>Signal below threshold.</source>
        <translation>Signal unter der Schwelle.</translation>
    </message>
    <message>
        <source>Not enough peak channels.</source>
        <translation>Zu wenige Kanäle im Maximum.</translation>
    </message>
    <message>
        <source>Noise above threshold.</source>
        <translation>Rauschen über der Schwelle.</translation>
    </message>
    <message>
        <source>Regression failed.</source>
        <translation>Regression misslungen.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::Reader</name>
    <message>
        <source>&quot;%1&quot; means nothing here</source>
        <translation>„%1“ hat hier keine Bedeutung</translation>
    </message>
    <message>
        <source>there is no function &quot;%1&quot;</source>
        <translation>es gibt keine Funktion „%1“</translation>
    </message>
    <message>
        <source>no channel is called &quot;%1&quot;</source>
        <translation>kein Kanal heißt „%1“</translation>
    </message>
    <message>
        <source>a range of channels ends with a later channel that is not computed</source>
        <translation>ein Bereich von Kanälen endet mit einem späteren, nicht berechneten Kanal</translation>
    </message>
    <message>
        <source>a name of a channel is missing, or its bracket is not closed</source>
        <translation>der Name eines Kanals fehlt, oder seine Klammer ist nicht geschlossen</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RowFormula</name>
    <message>
        <source>this library was built without muparser, which reads expressions</source>
        <translation>diese Bibliothek wurde ohne muparser gebaut, das Ausdrücke liest</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ScopeLegend</name>
    <message>
        <source>Legend</source>
        <translation>Legende</translation>
    </message>
    <message>
        <source>The channels with their newest values. A click, Space or Enter hides a channel or shows it again.</source>
        <translation>Die Kanäle mit ihren neuesten Werten. Klick, Leertaste oder Eingabetaste blendet einen Kanal aus oder wieder ein.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpectrogramPlot</name>
    <message>
        <source>Mean X</source>
        <translation>Mittel X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>Mittel Y</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Keine Daten</translation>
    </message>
    <message>
        <source>Out of bounds</source>
        <translation>Außerhalb</translation>
    </message>
    <message>
        <source>Channel %1: %2</source>
        <translation>Kanal %1: %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotLegend</name>
    <message>
        <source>one spot: %1</source>
        <translation>ein Spot: %1</translation>
    </message>
    <message>
        <source>one spot below the target: -%1</source>
        <translation>ein Spot unter dem Soll: -%1</translation>
    </message>
    <message>
        <source>above: +%1</source>
        <translation>darüber: +%1</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotMapView</name>
    <message>
        <source>Row %1
X %2
Y %3
Dose %4
Sigma %5</source>
        <translation>Zeile %1
X %2
Y %3
Dosis %4
Sigma %5</translation>
    </message>
    <message>
        <source>No spots in this map</source>
        <translation>Keine Spots in dieser Karte</translation>
    </message>
    <message>
        <source>No spots</source>
        <translation>Keine Spots</translation>
    </message>
    <message>
        <source>No spots in the map to compare with</source>
        <translation>Keine Spots in der Vergleichskarte</translation>
    </message>
    <message>
        <source>Spots to compare with lie outside of this map</source>
        <translation>Spots der Vergleichskarte liegen außerhalb dieser Karte</translation>
    </message>
    <message>
        <source>Spots that cannot be drawn: %1</source>
        <translation>Spots, die nicht gezeichnet werden können: %1</translation>
    </message>
    <message>
        <source>Spots to compare with that cannot be drawn: %1</source>
        <translation>Vergleichsspots, die nicht gezeichnet werden können: %1</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Spotkarte</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>Spots: %1</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotMapWidget</name>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Spotkarte</translation>
    </message>
    <message>
        <source>x(mm):</source>
        <translation>x (mm):</translation>
    </message>
    <message>
        <source>y(mm):</source>
        <translation>y (mm):</translation>
    </message>
    <message>
        <source>dose(Gp):</source>
        <translation>Dosis (Gp):</translation>
    </message>
    <message>
        <source>The spots</source>
        <translation>Die Spots</translation>
    </message>
    <message>
        <source>Actual</source>
        <translation>Ist</translation>
    </message>
    <message>
        <source>Blue where there is more dose than in the other map, red where there is less</source>
        <translation>Blau, wo die Dosis größer ist als in der anderen Karte, rot, wo sie kleiner ist</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>Diff.</translation>
    </message>
    <message>
        <source>The spots, with the difference over them</source>
        <translation>Die Spots, darüber die Differenz</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Beides</translation>
    </message>
    <message>
        <source>X Position (mm)</source>
        <translation>X-Position (mm)</translation>
    </message>
    <message>
        <source>Y Position (mm)</source>
        <translation>Y-Position (mm)</translation>
    </message>
    <message>
        <source>dose:</source>
        <translation>Dosis:</translation>
    </message>
    <message>
        <source>dose(%1):</source>
        <translation>Dosis (%1):</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::StatisticsLabels</name>
    <message>
        <source>N/A</source>
        <translation>n. v.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::TimeSpanBox</name>
    <message>
        <source>Time span</source>
        <translation>Zeitspanne</translation>
    </message>
    <message>
        <source>Time that the chart shows: choose one, or type 90 s, 2 h, 1.5 min or all.</source>
        <translation>Zeit, die das Diagramm zeigt: wählen oder eingeben, etwa 90 s, 2 h, 1.5 min oder alles.</translation>
    </message>
</context>
</TS>
