<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Corvale_Qt</name>
    <message>
        <source>cells</source>
        <translation>cellules</translation>
    </message>
    <message>
        <source>the numbers are too large to be shown</source>
        <translation>les nombres sont trop grands pour être affichés</translation>
    </message>
    <message>
        <source>the fit failed</source>
        <translation>l&apos;ajustement a échoué</translation>
    </message>
    <message>
        <source>is not a usable length</source>
        <translation>n&apos;est pas une longueur utilisable</translation>
    </message>
    <message>
        <source>%1 follows %2: positions must rise, or fall, without repeating</source>
        <translation>%1 suit %2&#xa0;: les positions doivent croître ou décroître, sans se répéter</translation>
    </message>
    <message>
        <source>is not above 0</source>
        <translation>n&apos;est pas supérieur à 0</translation>
    </message>
    <message>
        <source>overlaps the cell before it</source>
        <translation>recouvre la cellule précédente</translation>
    </message>
    <message>
        <source>must be between 0 and %1</source>
        <translation>doit être compris entre 0 et %1</translation>
    </message>
    <message>
        <source>is not a text of at most %1 characters</source>
        <translation>n&apos;est pas un texte d&apos;au plus %1 caractères</translation>
    </message>
    <message>
        <source>is stated beside positions</source>
        <translation>est indiqué en plus des positions</translation>
    </message>
    <message>
        <source>more than 100 %</source>
        <translation>plus de 100 %</translation>
    </message>
    <message>
        <source>no peak above %1 times the noise</source>
        <translation>aucun pic au-dessus de %1 fois le bruit</translation>
    </message>
    <message>
        <source>%1 of the charge lies in dead, hot or saturated cells</source>
        <translation>%1 de la charge se trouve dans des cellules mortes, chaudes ou saturées</translation>
    </message>
    <message>
        <source>the position lies outside of the detector</source>
        <translation>la position est hors du détecteur</translation>
    </message>
    <message>
        <source>sigma does not fit on the detector</source>
        <translation>sigma dépasse la taille du détecteur</translation>
    </message>
    <message>
        <source>no cell shows whether a Gaussian describes the readings</source>
        <translation>aucune cellule ne montre si une gaussienne décrit les mesures</translation>
    </message>
    <message>
        <source>the residuals are %1 of the peak</source>
        <translation>les résidus valent %1 du pic</translation>
    </message>
    <message>
        <source>R2 is %1</source>
        <translation>R2 vaut %1</translation>
    </message>
    <message>
        <source>a background of %1 of the peak is not subtracted, and widens sigma</source>
        <translation>un fond de %1 du pic n&apos;est pas soustrait et élargit sigma</translation>
    </message>
    <message>
        <source>the beam is at the edge of the detector</source>
        <translation>le faisceau est au bord du détecteur</translation>
    </message>
    <message>
        <source>%1 of the charge lies outside of the detector</source>
        <translation>%1 de la charge est hors du détecteur</translation>
    </message>
    <message>
        <source>the area of integration was cut at the edge of the detector</source>
        <translation>la zone d&apos;intégration est coupée au bord du détecteur</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>DONNÉES VALIDES</translation>
    </message>
    <message>
        <source>DATA VALID, FIT POOR</source>
        <translation>DONNÉES VALIDES, AJUSTEMENT MÉDIOCRE</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>DONNÉES NON VALIDES</translation>
    </message>
    <message>
        <source>the readings or their positions are not usable</source>
        <translation>les mesures ou leurs positions sont inutilisables</translation>
    </message>
    <message>
        <source>there are not enough cells</source>
        <translation>il n&apos;y a pas assez de cellules</translation>
    </message>
    <message>
        <source>there is no charge above the background</source>
        <translation>aucune charge au-dessus du fond</translation>
    </message>
    <message>
        <source>the peak lies at the edge of the detector</source>
        <translation>le pic est au bord du détecteur</translation>
    </message>
    <message>
        <source>the width is not a real number</source>
        <translation>la largeur n&apos;est pas un nombre réel</translation>
    </message>
    <message>
        <source>the iteration did not converge</source>
        <translation>l&apos;itération n&apos;a pas convergé</translation>
    </message>
    <message>
        <source>no Gaussian: the beam is flat-topped</source>
        <translation>pas de gaussienne&#xa0;: le faisceau a un sommet plat</translation>
    </message>
    <message>
        <source>is missing</source>
        <translation>manque</translation>
    </message>
    <message>
        <source>there is no such channel</source>
        <translation>ce canal n&apos;existe pas</translation>
    </message>
    <message>
        <source>must be the version, 1</source>
        <translation>doit être la version, 1</translation>
    </message>
    <message>
        <source>the text is longer than %1 MiB</source>
        <translation>le texte dépasse %1 Mio</translation>
    </message>
    <message>
        <source>the key &quot;%1&quot; is given twice, or with a backslash</source>
        <translation>la clé «&#xa0;%1&#xa0;» est donnée deux fois, ou avec une barre oblique inverse</translation>
    </message>
    <message>
        <source>this is not an object in braces</source>
        <translation>ce n&apos;est pas un objet entre accolades</translation>
    </message>
    <message>
        <source>a matrix has rows and columns</source>
        <translation>une matrice a des lignes et des colonnes</translation>
    </message>
    <message>
        <source>a list of channels has no axes</source>
        <translation>une liste de canaux n&apos;a pas d&apos;axes</translation>
    </message>
    <message>
        <source>the strips of neither x nor y are stated</source>
        <translation>les pistes ne sont indiquées ni pour x ni pour y</translation>
    </message>
    <message>
        <source>there is no reading %1</source>
        <translation>il n&apos;y a pas de mesure %1</translation>
    </message>
    <message>
        <source>reading %1 is wired twice</source>
        <translation>la mesure %1 est câblée deux fois</translation>
    </message>
    <message>
        <source>is 0 or not a usable number</source>
        <translation>vaut 0 ou n&apos;est pas un nombre utilisable</translation>
    </message>
    <message>
        <source>is not a usable number</source>
        <translation>n&apos;est pas un nombre utilisable</translation>
    </message>
    <message>
        <source>must be between 1 and %1</source>
        <translation>doit être compris entre 1 et %1</translation>
    </message>
    <message>
        <source>positions in cells</source>
        <translation>positions en cellules</translation>
    </message>
    <message>
        <source>no detector</source>
        <translation>aucun détecteur</translation>
    </message>
    <message>
        <source>strips %1 + %2, %3</source>
        <translation>pistes %1 + %2, %3</translation>
    </message>
    <message>
        <source>matrix %1 x %2, %3</source>
        <translation>matrice %1 x %2, %3</translation>
    </message>
    <message>
        <source>number %1, &quot;%2&quot;, is not a number</source>
        <translation>le nombre %1, «&#xa0;%2&#xa0;», n&apos;est pas un nombre</translation>
    </message>
    <message>
        <source>the numbers are missing</source>
        <translation>les nombres manquent</translation>
    </message>
    <message>
        <source>the pitch is not a number above 0</source>
        <translation>le pas n&apos;est pas un nombre supérieur à 0</translation>
    </message>
    <message>
        <source>the offset is not a number</source>
        <translation>le décalage n&apos;est pas un nombre</translation>
    </message>
    <message>
        <source>the direction is neither forward nor reverse</source>
        <translation>le sens n&apos;est ni forward ni reverse</translation>
    </message>
    <message>
        <source>two numbers of cells must follow strips or matrix</source>
        <translation>deux nombres de cellules doivent suivre strips ou matrix</translation>
    </message>
    <message>
        <source>there is no channel %1; channels are counted from 1</source>
        <translation>il n&apos;y a pas de canal %1&#xa0;; les canaux sont comptés à partir de 1</translation>
    </message>
    <message>
        <source>the noise is not a number above 0</source>
        <translation>le bruit n&apos;est pas un nombre supérieur à 0</translation>
    </message>
    <message>
        <source>nothing may follow</source>
        <translation>rien ne peut suivre</translation>
    </message>
    <message>
        <source>there is no channel %1</source>
        <translation>il n&apos;y a pas de canal %1</translation>
    </message>
    <message>
        <source>character %1: %2</source>
        <translation>caractère %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>there is no expression</source>
        <translation>il n&apos;y a pas d&apos;expression</translation>
    </message>
    <message>
        <source>the expression ends too early</source>
        <translation>l&apos;expression se termine trop tôt</translation>
    </message>
    <message>
        <source>a parenthesis is not closed</source>
        <translation>une parenthèse n&apos;est pas fermée</translation>
    </message>
    <message>
        <source>this parenthesis has no counterpart, or nothing in it</source>
        <translation>cette parenthèse est seule, ou vide</translation>
    </message>
    <message>
        <source>the function has too many arguments</source>
        <translation>la fonction a trop d&apos;arguments</translation>
    </message>
    <message>
        <source>the function has too few arguments</source>
        <translation>la fonction a trop peu d&apos;arguments</translation>
    </message>
    <message>
        <source>a value is missing before this operator</source>
        <translation>il manque une valeur avant cet opérateur</translation>
    </message>
    <message>
        <source>an operator is missing before this</source>
        <translation>il manque un opérateur avant ceci</translation>
    </message>
    <message>
        <source>this comma does not separate the arguments of a function</source>
        <translation>cette virgule ne sépare pas les arguments d&apos;une fonction</translation>
    </message>
    <message>
        <source>&quot;?&quot; and &quot;:&quot; do not belong together here</source>
        <translation>«&#xa0;?&#xa0;» et «&#xa0;:&#xa0;» ne vont pas ensemble ici</translation>
    </message>
    <message>
        <source>this cannot be understood</source>
        <translation>ceci est incompréhensible</translation>
    </message>
    <message>
        <source>The channels belong to several planes.</source>
        <translation>Les canaux appartiennent à plusieurs plans.</translation>
    </message>
    <message>
        <source>Armed</source>
        <translation>Armé</translation>
    </message>
    <message>
        <source>Triggered</source>
        <translation>Déclenché</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>all</source>
        <translation>tout</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: a time span is at least %2 and at most %3.</source>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: une durée vaut au moins %2 et au plus %3.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a time span. Examples: 90 s, 2 h, 1.5 min, 250 ms, all.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas une durée. Exemples&#xa0;: 90 s, 2 h, 1.5 min, 250 ms, tout.</translation>
    </message>
    <message>
        <source>is not a number from 0 on</source>
        <translation>n&apos;est pas un nombre à partir de 0</translation>
    </message>
    <message>
        <source>all other cells read 0: hot, or a beam narrower than a cell</source>
        <translation>toutes les autres cellules lisent 0&#xa0;: chaude, ou un faisceau plus étroit qu&apos;une cellule</translation>
    </message>
    <message>
        <source>%1, then %2</source>
        <comment>UTC+1, then UTC+2</comment>
        <translation>%1, puis %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <comment>UTC+1 or UTC+2</comment>
        <translation>%1 ou %2</translation>
    </message>
    <message numerus="yes">
        <source> frame(s)</source>
        <translation>
            <numerusform> image</numerusform>
            <numerusform> images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>average of %n frame(s)</source>
        <translation>
            <numerusform>moyenne de %n image</numerusform>
            <numerusform>moyenne de %n images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>taking the background: %n frame(s) to come</source>
        <translation>
            <numerusform>acquisition du fond&#xa0;: encore %n image</numerusform>
            <numerusform>acquisition du fond&#xa0;: encore %n images</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) subtracted</source>
        <translation>
            <numerusform>fond de %n image soustrait</numerusform>
            <numerusform>fond de %n images soustrait</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>background of %n frame(s) not subtracted</source>
        <translation>
            <numerusform>fond de %n image non soustrait</numerusform>
            <numerusform>fond de %n images non soustrait</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong to no cell: %1 left out</source>
        <translation>
            <numerusform>%n mesure n&apos;appartient à aucune cellule&#xa0;: %1 ne sont pas prises en compte</numerusform>
            <numerusform>%n mesures n&apos;appartiennent à aucune cellule&#xa0;: %1 ne sont pas prises en compte</numerusform>
        </translation>
    </message>
    <message>
        <source>has %1 for %2</source>
        <translation>a %1 pour %2</translation>
    </message>
    <message numerus="yes">
        <source>%n width(s)</source>
        <translation>
            <numerusform>%n largeur</numerusform>
            <numerusform>%n largeurs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s)</source>
        <translation>
            <numerusform>%n cellule</numerusform>
            <numerusform>%n cellules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n position(s)</source>
        <translation>
            <numerusform>%n position</numerusform>
            <numerusform>%n positions</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n number(s)</source>
        <translation>
            <numerusform>%n nombre</numerusform>
            <numerusform>%n nombres</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s)</source>
        <translation>
            <numerusform>%n mesure</numerusform>
            <numerusform>%n mesures</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n name(s)</source>
        <translation>
            <numerusform>%n nom</numerusform>
            <numerusform>%n noms</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is not the number of a reading</source>
        <translation>%1 n&apos;est pas le numéro d&apos;une mesure</translation>
    </message>
    <message>
        <source>there are fewer readings (%1) than cells (%2)</source>
        <translation>il y a moins de mesures (%1) que de cellules (%2)</translation>
    </message>
    <message numerus="yes">
        <source>%n entry/entries</source>
        <translation>
            <numerusform>%n entrée</numerusform>
            <numerusform>%n entrées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n channel(s)</source>
        <translation>
            <numerusform>%n canal</numerusform>
            <numerusform>%n canaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>the detector has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>le détecteur a %n mesure, le flux %1</numerusform>
            <numerusform>le détecteur a %n mesures, le flux %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1
%n sample(s) would go.</source>
        <translation>
            <numerusform>%1
%n mesure serait perdue.</numerusform>
            <numerusform>%1
%n mesures seraient perdues.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::AxisLine</name>
    <message>
        <source>the unit is missing</source>
        <translation>l&apos;unité manque</translation>
    </message>
    <message>
        <source>the unit is %1, but %2 before</source>
        <translation>l&apos;unité est %1, mais c&apos;était %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ChannelExpressionsPrivate</name>
    <message>
        <source>the computed channel has no name</source>
        <translation>le canal calculé n&apos;a pas de nom</translation>
    </message>
    <message>
        <source>there is already a channel called &quot;%1&quot;</source>
        <translation>il y a déjà un canal nommé «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>the expression is too long</source>
        <translation>l&apos;expression est trop longue</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is computed from itself</source>
        <translation>«&#xa0;%1&#xa0;» est calculé à partir de lui-même</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorControls</name>
    <message>
        <source>Detector</source>
        <translation>Détecteur</translation>
    </message>
    <message>
        <source>Logarithmic colours</source>
        <translation>Couleurs logarithmiques</translation>
    </message>
    <message>
        <source>Projections</source>
        <translation>Projections</translation>
    </message>
    <message>
        <source>Colours from</source>
        <translation>Couleurs de</translation>
    </message>
    <message>
        <source>Subtract background</source>
        <translation>Soustraire le fond</translation>
    </message>
    <message>
        <source>Centre of gravity</source>
        <translation>Barycentre</translation>
    </message>
    <message>
        <source>Three points</source>
        <translation>Trois points</translation>
    </message>
    <message>
        <source>Regression</source>
        <translation>Régression</translation>
    </message>
    <message>
        <source>Least squares</source>
        <translation>Moindres carrés</translation>
    </message>
    <message>
        <source>Half maximum</source>
        <translation>Mi-hauteur</translation>
    </message>
    <message>
        <source>Second moment</source>
        <translation>Second moment</translation>
    </message>
    <message>
        <source>How mean and sigma are found</source>
        <translation>Comment la moyenne et sigma sont déterminés</translation>
    </message>
    <message>
        <source>Averaged frames</source>
        <translation>Images moyennées</translation>
    </message>
    <message>
        <source>Frames of the background</source>
        <translation>Images du fond</translation>
    </message>
    <message>
        <source>Lowest value of the colours</source>
        <translation>Plus petite valeur des couleurs</translation>
    </message>
    <message>
        <source>Highest value of the colours</source>
        <translation>Plus grande valeur des couleurs</translation>
    </message>
    <message>
        <source>Take background</source>
        <translation>Acquérir le fond</translation>
    </message>
    <message>
        <source>Estimator</source>
        <translation>Estimateur</translation>
    </message>
    <message>
        <source>to</source>
        <translation>à</translation>
    </message>
    <message>
        <source>Average of</source>
        <translation>Moyenne de</translation>
    </message>
    <message>
        <source>Clear background</source>
        <translation>Effacer le fond</translation>
    </message>
    <message>
        <source>Show the whole detector</source>
        <translation>Montrer tout le détecteur</translation>
    </message>
    <message>
        <source>Save the frame as CSV…</source>
        <translation>Enregistrer l&apos;image en CSV…</translation>
    </message>
    <message>
        <source>Save a picture…</source>
        <translation>Enregistrer une vue…</translation>
    </message>
    <message>
        <source>Save a picture</source>
        <translation>Enregistrer une vue</translation>
    </message>
    <message>
        <source>Save the frame</source>
        <translation>Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>Pictures (*.png)</source>
        <translation>Images (*.png)</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>Fichiers CSV (*.csv)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>Erreur lors de l&apos;enregistrement du fichier de données.</translation>
    </message>
    <message>
        <source>Least squares, linear background</source>
        <translation>Moindres carrés, fond linéaire</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::DetectorFault</name>
    <message>
        <source>line %1, %2</source>
        <translation>ligne %1, %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HeldMark</name>
    <message>
        <source>Held</source>
        <translation>Figé</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>En direct</translation>
    </message>
    <message>
        <source>The picture stands still while readings come. Show the newest ones again (End).</source>
        <translation>L&apos;affichage est figé pendant que des mesures arrivent. Montrer de nouveau les plus récentes (Fin).</translation>
    </message>
    <message>
        <source>Y zoomed</source>
        <translation>Y agrandi</translation>
    </message>
    <message>
        <source>Whole</source>
        <translation>Entier</translation>
    </message>
    <message>
        <source>The y axis shows a part of its scale. Show the whole scale again (End).</source>
        <translation>L&apos;axe y montre une partie de son échelle. Montrer de nouveau toute l&apos;échelle (Fin).</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HistogramPlaces</name>
    <message>
        <source>cells</source>
        <translation>cellules</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::HoverCursor</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>et %n de plus</numerusform>
            <numerusform>et %n de plus</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::JsonMembers</name>
    <message>
        <source>is not a number</source>
        <translation>n&apos;est pas un nombre</translation>
    </message>
    <message>
        <source>is not a whole number from 0 to %1</source>
        <translation>n&apos;est pas un nombre entier de 0 à %1</translation>
    </message>
    <message>
        <source>is neither true nor false</source>
        <translation>n&apos;est ni true ni false</translation>
    </message>
    <message>
        <source>is not a text</source>
        <translation>n&apos;est pas un texte</translation>
    </message>
    <message>
        <source>there are too many items</source>
        <translation>il y a trop d&apos;éléments</translation>
    </message>
    <message>
        <source>is not a list of numbers</source>
        <translation>n&apos;est pas une liste de nombres</translation>
    </message>
    <message>
        <source>is not a list of texts</source>
        <translation>n&apos;est pas une liste de textes</translation>
    </message>
    <message>
        <source>is none of: %1</source>
        <translation>n&apos;est aucun de&#xa0;: %1</translation>
    </message>
    <message>
        <source>is not an object in braces</source>
        <translation>n&apos;est pas un objet entre accolades</translation>
    </message>
    <message>
        <source>is not a known key</source>
        <translation>n&apos;est pas une clé connue</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LayoutView</name>
    <message>
        <source>Intensity</source>
        <translation>Intensité</translation>
    </message>
    <message>
        <source>Intensity (%1)</source>
        <translation>Intensité (%1)</translation>
    </message>
    <message>
        <source>not wired</source>
        <translation>non câblée</translation>
    </message>
    <message>
        <source>channel %1</source>
        <translation>canal %1</translation>
    </message>
    <message>
        <source>dead</source>
        <translation>morte</translation>
    </message>
    <message>
        <source>saturated</source>
        <translation>saturée</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::LegendModel</name>
    <message>
        <source>High warning</source>
        <translation>Alerte haute</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>Alerte basse</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>Alarme basse</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>Alarme haute</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: click or press Enter to hide or show it</source>
        <translation>%1&#xa0;: un clic ou Entrée le masque ou l&apos;affiche</translation>
    </message>
    <message>
        <source>%1, right axis</source>
        <translation>%1, axe de droite</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::MeanTimePlot</name>
    <message>
        <source>Time (s)</source>
        <translation>Temps (s)</translation>
    </message>
    <message>
        <source>Position (mm)</source>
        <translation>Position (mm)</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>Moyenne X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>Moyenne Y</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::PlotDataExport</name>
    <message>
        <source>there are no rows to save</source>
        <translation>il n&apos;y a aucune ligne à enregistrer</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXAbstractDeviceDataModel</name>
    <message>
        <source>Time (s)</source>
        <translation>Temps (s)</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXComputedChannelsProxyModel</name>
    <message>
        <source>no reading</source>
        <translation>aucune mesure</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLatestPlotDataProxyModel</name>
    <message>
        <source>Data</source>
        <translation>Données</translation>
    </message>
    <message>
        <source>Data (%1)</source>
        <translation>Données (%1)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXLogBrowser</name>
    <message>
        <source>widget title</source>
        <translation>titre du composant</translation>
    </message>
    <message>
        <source>log</source>
        <translation>journal</translation>
    </message>
    <message>
        <source>clear log contents</source>
        <translation>effacer le journal</translation>
    </message>
    <message>
        <source>clear</source>
        <translation>effacer</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXMultichannelDeviceModel</name>
    <message>
        <source>no reading</source>
        <translation>aucune mesure</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPopOutTabWidget</name>
    <message>
        <source>Put back into its tab</source>
        <translation>Remettre dans son onglet</translation>
    </message>
    <message>
        <source>Open &quot;%1&quot; in a window</source>
        <translation>Ouvrir «&#xa0;%1&#xa0;» dans une fenêtre</translation>
    </message>
    <message>
        <source>Put &quot;%1&quot; back</source>
        <translation>Remettre «&#xa0;%1&#xa0;» en place</translation>
    </message>
    <message>
        <source>Put all back</source>
        <translation>Tout remettre en place</translation>
    </message>
    <message>
        <source>All pages are in separate windows.
Close a window to put its page back.</source>
        <translation>Toutes les pages sont dans des fenêtres séparées.
Fermer une fenêtre remet sa page en place.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionErrorPlot</name>
    <message>
        <source>Mean Error (X, Y):</source>
        <translation>Erreur moyenne (X, Y)&#xa0;:</translation>
    </message>
    <message>
        <source>Mean of the X errors</source>
        <translation>Moyenne des erreurs en X</translation>
    </message>
    <message>
        <source>Mean of the Y errors</source>
        <translation>Moyenne des erreurs en Y</translation>
    </message>
    <message>
        <source>(mm)</source>
        <translation>(mm)</translation>
    </message>
    <message>
        <source>Energy:</source>
        <translation>Énergie&#xa0;:</translation>
    </message>
    <message>
        <source>Beam energy of the newest spot</source>
        <translation>Énergie du faisceau du dernier spot</translation>
    </message>
    <message>
        <source>(MeV)</source>
        <translation>(MeV)</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n.d.</translation>
    </message>
    <message>
        <source>Spot Position Error</source>
        <translation>Erreur de position des spots</translation>
    </message>
    <message>
        <source>X Error (mm)</source>
        <translation>Erreur X (mm)</translation>
    </message>
    <message>
        <source>Y Error (mm)</source>
        <translation>Erreur Y (mm)</translation>
    </message>
    <message>
        <source>no spots</source>
        <translation>aucun spot</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>Spots&#xa0;: %1</translation>
    </message>
    <message>
        <source>outside of the tolerance: %1</source>
        <translation>hors tolérance&#xa0;: %1</translation>
    </message>
    <message>
        <source>mean X error %1 mm; mean Y error %2 mm</source>
        <translation>erreur X moyenne %1 mm&#xa0;; erreur Y moyenne %2 mm</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXPositionPlot</name>
    <message>
        <source>no beam</source>
        <translation>pas de faisceau</translation>
    </message>
    <message>
        <source>Y Position</source>
        <translation>Position Y</translation>
    </message>
    <message>
        <source>X Position</source>
        <translation>Position X</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>no position yet</source>
        <translation>pas encore de position</translation>
    </message>
    <message>
        <source>newest position</source>
        <translation>dernière position</translation>
    </message>
    <message>
        <source>position not valid</source>
        <translation>position non valide</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScope</name>
    <message>
        <source>Form</source>
        <translation>Formulaire</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>Tracé</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Plot mode</source>
        <translation>Mode de tracé</translation>
    </message>
    <message>
        <source>What is plotted: the newest samples scrolling by, one sweep after the other, or the newest sample of each channel as a bar.</source>
        <translation>Ce qui est tracé&#xa0;: les dernières mesures qui défilent, un balayage après l&apos;autre, ou la dernière mesure de chaque canal sous forme de barre.</translation>
    </message>
    <message>
        <source>State of the data</source>
        <translation>État des données</translation>
    </message>
    <message>
        <source>What is done to the data before it is shown.</source>
        <translation>Ce qui est fait aux données avant l&apos;affichage.</translation>
    </message>
    <message>
        <source>Number of data samples collected, up to 100000.</source>
        <translation>Nombre de mesures recueillies, jusqu&apos;à 100000.</translation>
    </message>
    <message>
        <source>0 Samples</source>
        <translation>0 mesures</translation>
    </message>
    <message>
        <source>Clear the data buffer.</source>
        <translation>Vider la mémoire de données.</translation>
    </message>
    <message>
        <source>Clears the data buffer: all samples collected so far are dropped. Shortcut: Ctrl+L.</source>
        <translation>Vide la mémoire de données&#xa0;: toutes les mesures recueillies sont perdues. Raccourci&#xa0;: Ctrl+L.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>Save the data buffer to a file.</source>
        <translation>Enregistrer la mémoire de données dans un fichier.</translation>
    </message>
    <message>
        <source>Saves the data buffer to a file, as it was measured: neither averaged nor zeroed. Shortcut: Ctrl+S.</source>
        <translation>Enregistre la mémoire de données telle que mesurée&#xa0;: ni moyennée ni mise à zéro. Raccourci&#xa0;: Ctrl+S.</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Show controls</source>
        <translation>Montrer les réglages</translation>
    </message>
    <message>
        <source>Shows or hides the controls of the plot and of the acquisition.</source>
        <translation>Montre ou masque les réglages du tracé et de l&apos;acquisition.</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Y range</source>
        <translation>Plage Y</translation>
    </message>
    <message>
        <source>Y:</source>
        <translation>Y&#xa0;:</translation>
    </message>
    <message>
        <source>Set the range of the Y axis.</source>
        <translation>Régler la plage de l&apos;axe Y.</translation>
    </message>
    <message>
        <source>Set the Y axis to start at 0.</source>
        <translation>Faire commencer l&apos;axe Y à 0.</translation>
    </message>
    <message>
        <source>Positive Y range only</source>
        <translation>Plage Y positive seulement</translation>
    </message>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Running average</source>
        <translation>Moyenne glissante</translation>
    </message>
    <message>
        <source>Apply running average to all data.</source>
        <translation>Appliquer une moyenne glissante à toutes les données.</translation>
    </message>
    <message>
        <source>No Avg</source>
        <translation>Sans moy.</translation>
    </message>
    <message>
        <source>10x Avg</source>
        <translation>Moy. 10x</translation>
    </message>
    <message>
        <source>100x Avg</source>
        <translation>Moy. 100x</translation>
    </message>
    <message>
        <source>1000x Avg</source>
        <translation>Moy. 1000x</translation>
    </message>
    <message>
        <source>Display derivative data.</source>
        <translation>Afficher la dérivée des données.</translation>
    </message>
    <message>
        <source>Derivative</source>
        <translation>Dérivée</translation>
    </message>
    <message>
        <source>d/dx</source>
        <translation>d/dx</translation>
    </message>
    <message>
        <source>Subtract current values from all data.</source>
        <translation>Soustraire les valeurs actuelles de toutes les données.</translation>
    </message>
    <message>
        <source>Subtracts the current value of each channel from all of its data. What is saved is not changed. Shortcut: Ctrl+0.</source>
        <translation>Soustrait la valeur actuelle de chaque canal de toutes ses données. Ce qui est enregistré ne change pas. Raccourci&#xa0;: Ctrl+0.</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Zéro</translation>
    </message>
    <message>
        <source>Undo zero subtraction.</source>
        <translation>Annuler la mise à zéro.</translation>
    </message>
    <message>
        <source>Undo zero subtraction</source>
        <translation>Annuler la mise à zéro</translation>
    </message>
    <message>
        <source>Shows the data as it was measured again. Green while a zero is subtracted.</source>
        <translation>Montre de nouveau les données telles que mesurées. Vert tant qu&apos;un zéro est soustrait.</translation>
    </message>
    <message>
        <source>Acquisition period</source>
        <translation>Période d&apos;acquisition</translation>
    </message>
    <message>
        <source>Period </source>
        <translation>Période </translation>
    </message>
    <message>
        <source>Time from one sample to the next. A change clears the data buffer.</source>
        <translation>Temps d&apos;une mesure à la suivante. Un changement vide la mémoire de données.</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Rapide</translation>
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
        <translation>Fait recueillir les mesures par l&apos;instrument pendant un intervalle, puis les transmet ensemble.</translation>
    </message>
    <message>
        <source>Buffered Interval</source>
        <translation>Intervalle groupé</translation>
    </message>
    <message>
        <source>Buffered interval in seconds</source>
        <translation>Intervalle groupé en secondes</translation>
    </message>
    <message>
        <source> s</source>
        <translation> s</translation>
    </message>
    <message>
        <source>&amp;Remove the samples</source>
        <translation>&amp;Supprimer les mesures</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Période</translation>
    </message>
    <message>
        <source>Another period begins with an empty buffer.</source>
        <translation>Une autre période commence avec une mémoire vide.</translation>
    </message>
    <message>
        <source>Strip</source>
        <translation>Bande</translation>
    </message>
    <message>
        <source>Scope</source>
        <translation>Oscilloscope</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogramme</translation>
    </message>
    <message>
        <source>2D</source>
        <translation>2D</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Divisé</translation>
    </message>
    <message>
        <source>Plot mode: %1</source>
        <translation>Mode de tracé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Save Data File</source>
        <translation>Enregistrer le fichier de données</translation>
    </message>
    <message>
        <source>CSV File (*.csv)</source>
        <translation>Fichier CSV (*.csv)</translation>
    </message>
    <message>
        <source>Save Data</source>
        <translation>Enregistrer les données</translation>
    </message>
    <message>
        <source>Error saving data file.</source>
        <translation>Erreur lors de l&apos;enregistrement du fichier de données.</translation>
    </message>
    <message>
        <source>All samples are removed from the buffer.</source>
        <translation>Toutes les mesures sont retirées de la mémoire.</translation>
    </message>
    <message>
        <source>%1x Avg</source>
        <translation>Moy. %1x</translation>
    </message>
    <message>
        <source>Zeroed</source>
        <translation>Mis à zéro</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normaliser</translation>
    </message>
    <message>
        <source>Saving data</source>
        <translation>Enregistrement des données</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXScopePlotView</name>
    <message>
        <source>no reading</source>
        <translation>aucune mesure</translation>
    </message>
    <message>
        <source>Marker 1</source>
        <translation>Marqueur 1</translation>
    </message>
    <message>
        <source>Marker 2</source>
        <translation>Marqueur 2</translation>
    </message>
    <message>
        <source>Period</source>
        <translation>Période</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>Delta</source>
        <translation>Écart</translation>
    </message>
    <message>
        <source>Readings</source>
        <translation>Mesures</translation>
    </message>
    <message>
        <source>Missing</source>
        <translation>Manquantes</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>Somme</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>RMS</source>
        <translation>RMS</translation>
    </message>
    <message>
        <source>Std. Dev</source>
        <translation>Écart type</translation>
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
        <translation>Intégrale</translation>
    </message>
    <message>
        <source>Covered</source>
        <translation>Couvert</translation>
    </message>
    <message>
        <source>Slope</source>
        <translation>Pente</translation>
    </message>
    <message>
        <source>Scope plot</source>
        <translation>Tracé de l&apos;oscilloscope</translation>
    </message>
    <message>
        <source>%1 Samples</source>
        <translation>%1 mesures</translation>
    </message>
    <message>
        <source>Relative Value</source>
        <translation>Valeur relative</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Not on a logarithmic axis, 0 or negative: %1</source>
        <translation>Hors de l&apos;axe logarithmique, nul ou négatif&#xa0;: %1</translation>
    </message>
    <message>
        <source>no readings</source>
        <translation>aucune mesure</translation>
    </message>
    <message>
        <source>Time from the newest reading (%1)</source>
        <translation>Temps depuis la dernière mesure (%1)</translation>
    </message>
    <message>
        <source>Time (local, %1)</source>
        <translation>Heure (locale, %1)</translation>
    </message>
    <message>
        <source>Time (UTC)</source>
        <translation>Heure (UTC)</translation>
    </message>
    <message>
        <source>the readings begin at %1</source>
        <translation>les mesures commencent à %1</translation>
    </message>
    <message>
        <source>%1 from the trigger</source>
        <translation>%1 depuis le déclenchement</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>et %n de plus</numerusform>
            <numerusform>et %n de plus</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, held</source>
        <translation>%1, figé</translation>
    </message>
    <message>
        <source>%1, live</source>
        <translation>%1, en direct</translation>
    </message>
    <message>
        <source>kept in a block only</source>
        <translation>conservé seulement dans un bloc</translation>
    </message>
    <message>
        <source>not known: older readings are kept in blocks</source>
        <translation>inconnu&#xa0;: les mesures anciennes sont conservées par blocs</translation>
    </message>
    <message>
        <source>From</source>
        <translation>De</translation>
    </message>
    <message>
        <source>To</source>
        <translation>À</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; two are shown)</source>
        <translation>Non tracé&#xa0;: %1 (autre unité&#xa0;; deux sont affichées)</translation>
    </message>
    <message>
        <source>Not drawn: %1 (another unit; one is shown)</source>
        <translation>Non tracé&#xa0;: %1 (autre unité&#xa0;; une seule est affichée)</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXSpectrogram</name>
    <message>
        <source>2D Plot</source>
        <translation>Tracé 2D</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Pas de données</translation>
    </message>
    <message>
        <source>Calculations</source>
        <translation>Calculs</translation>
    </message>
    <message>
        <source>Mean X</source>
        <translation>Moyenne X</translation>
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
        <translation>Moyenne Y</translation>
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
        <translation>σ majeur</translation>
    </message>
    <message>
        <source>σ Minor</source>
        <translation>σ mineur</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>Elongation</source>
        <translation>Élongation</translation>
    </message>
    <message>
        <source>Integral</source>
        <translation>Intégrale</translation>
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
        <translation>[+ Validité des données]</translation>
    </message>
    <message>
        <source>Display Options</source>
        <translation>Options d&apos;affichage</translation>
    </message>
    <message>
        <source>Beam Threshold</source>
        <translation>Seuil du faisceau</translation>
    </message>
    <message>
        <source>Beam threshold</source>
        <translation>Seuil du faisceau</translation>
    </message>
    <message>
        <source>Discriminator</source>
        <translation>Discriminateur</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>Ellipse</translation>
    </message>
    <message>
        <source>Size of the ellipse</source>
        <translation>Taille de l&apos;ellipse</translation>
    </message>
    <message>
        <source> sigma</source>
        <translation> sigma</translation>
    </message>
    <message>
        <source>Displacement Arrow</source>
        <translation>Flèche de déplacement</translation>
    </message>
    <message>
        <source>Length of the arrow head</source>
        <translation>Longueur de la pointe de flèche</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>X Origin</source>
        <translation>Origine X</translation>
    </message>
    <message>
        <source>Y Origin</source>
        <translation>Origine Y</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Invert X</source>
        <translation>Inverser X</translation>
    </message>
    <message>
        <source>Invert Y</source>
        <translation>Inverser Y</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Lissage</translation>
    </message>
    <message>
        <source>Scaling</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Normalize</source>
        <translation>Normaliser</translation>
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
        <translation>Couleurs</translation>
    </message>
    <message>
        <source>Greyscale</source>
        <translation>Niveaux de gris</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Couleur</translation>
    </message>
    <message>
        <source>Viridis</source>
        <translation>Viridis</translation>
    </message>
    <message>
        <source>LR40-8 Plot</source>
        <translation>Tracé LR40-8</translation>
    </message>
    <message>
        <source>DW7/DW9 Plot</source>
        <translation>Tracé DW7/DW9</translation>
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
        <translation>le maximum est sous le seuil</translation>
    </message>
    <message>
        <source>N/A</source>
        <translation>n.d.</translation>
    </message>
    <message>
        <source>DATA VALID</source>
        <translation>DONNÉES VALIDES</translation>
    </message>
    <message>
        <source>DATA NOT VALID</source>
        <translation>DONNÉES NON VALIDES</translation>
    </message>
    <message>
        <source> (and %1 more)</source>
        <translation> (et %1 de plus)</translation>
    </message>
    <message>
        <source>Beam profile</source>
        <translation>Profil du faisceau</translation>
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
        <translation>pas de faisceau</translation>
    </message>
    <message>
        <source>newest value</source>
        <translation>dernière valeur</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVXStatisticsSetupPage</name>
    <message>
        <source>Data Analysis</source>
        <translation>Analyse des données</translation>
    </message>
    <message>
        <source>Histogram Peak</source>
        <translation>Pic de l&apos;histogramme</translation>
    </message>
    <message>
        <source>Number of peaks</source>
        <translation>Nombre de pics</translation>
    </message>
    <message>
        <source>Peaks:</source>
        <translation>Pics&#xa0;:</translation>
    </message>
    <message>
        <source>How many groups of channels are analysed, each with a peak of its own.</source>
        <translation>Nombre de groupes de canaux analysés, chacun avec son propre pic.</translation>
    </message>
    <message>
        <source>Center of Gravity</source>
        <translation>Barycentre</translation>
    </message>
    <message>
        <source>Center of gravity above a threshold</source>
        <translation>Barycentre au-dessus d&apos;un seuil</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one count.</source>
        <translation>Seuls comptent les canaux au-dessus de cette part du plus haut.</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <translation>Seuil&#xa0;:</translation>
    </message>
    <message>
        <source>Threshold of the center of gravity in percent</source>
        <translation>Seuil du barycentre en pour cent</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Center of gravity in a window</source>
        <translation>Barycentre dans une fenêtre</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one count.</source>
        <translation>Seul ce nombre de canaux de chaque côté du plus haut compte.</translation>
    </message>
    <message>
        <source>Window:</source>
        <translation>Fenêtre&#xa0;:</translation>
    </message>
    <message>
        <source>Window of the center of gravity in channels</source>
        <translation>Fenêtre du barycentre en canaux</translation>
    </message>
    <message>
        <source>Gaussian Fit (regression)</source>
        <translation>Ajustement gaussien (régression)</translation>
    </message>
    <message>
        <source>Only channels above this part of the highest one are fitted.</source>
        <translation>Seuls les canaux au-dessus de cette part du plus haut sont ajustés.</translation>
    </message>
    <message>
        <source>Threshold of the fit in percent</source>
        <translation>Seuil de l&apos;ajustement en pour cent</translation>
    </message>
    <message>
        <source>Only this many channels on either side of the highest one are fitted.</source>
        <translation>Seul ce nombre de canaux de chaque côté du plus haut est ajusté.</translation>
    </message>
    <message>
        <source>Window of the fit in channels</source>
        <translation>Fenêtre de l&apos;ajustement en canaux</translation>
    </message>
    <message>
        <source>Peak Threshold:</source>
        <translation>Seuil du pic&#xa0;:</translation>
    </message>
    <message>
        <source>A peak lower than this is not fitted; in the base unit of the data.</source>
        <translation>Un pic plus bas n&apos;est pas ajusté&#xa0;; dans l&apos;unité de base des données.</translation>
    </message>
    <message>
        <source>Lowest peak that is fitted</source>
        <translation>Plus petit pic ajusté</translation>
    </message>
    <message>
        <source>Sum Threshold:</source>
        <translation>Seuil de la somme&#xa0;:</translation>
    </message>
    <message>
        <source>A profile whose sum is lower than this is not fitted; in the base unit of the data.</source>
        <translation>Un profil de somme inférieure n&apos;est pas ajusté&#xa0;; dans l&apos;unité de base des données.</translation>
    </message>
    <message>
        <source>Lowest sum that is fitted</source>
        <translation>Plus petite somme ajustée</translation>
    </message>
    <message>
        <source>Display Full Statistics</source>
        <translation>Afficher la statistique complète</translation>
    </message>
    <message>
        <source>Shows skewness, kurtosis, signal-to-noise ratio and goodness of the fit too.</source>
        <translation>Montre aussi l&apos;asymétrie, le kurtosis, le rapport signal sur bruit et la qualité de l&apos;ajustement.</translation>
    </message>
    <message>
        <source>Χ² Window:</source>
        <translation>Fenêtre du Χ²&#xa0;:</translation>
    </message>
    <message>
        <source>The fit is compared with this many channels on either side of the highest one.</source>
        <translation>L&apos;ajustement est comparé à ce nombre de canaux de chaque côté du plus haut.</translation>
    </message>
    <message>
        <source>Chi-square window in channels</source>
        <translation>Fenêtre du khi-deux en canaux</translation>
    </message>
    <message>
        <source>resets the settings to the initial factory settings</source>
        <translation>rétablit les réglages d&apos;usine</translation>
    </message>
    <message>
        <source>factory reset</source>
        <translation>réglages d&apos;usine</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_CoGHistogramItem</name>
    <message>
        <source>Center of Gravity</source>
        <translation>Barycentre</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_FitHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>Ajustement gaussien</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_GaussabolaHistogramItem</name>
    <message>
        <source>Gaussabola Fit</source>
        <translation>Ajustement gaussabola</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_PrecalculatedFitHistogramItem</name>
    <message>
        <source>Gaussian Fit (Device)</source>
        <translation>Ajustement gaussien (instrument)</translation>
    </message>
    <message>
        <source>Fit failed.</source>
        <translation>L&apos;ajustement a échoué.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_RegressionHistogramItem</name>
    <message>
        <source>Gaussian Fit</source>
        <translation>Ajustement gaussien</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RVX_StatisticsHistogramItem</name>
    <message>
        <source>Not computed.</source>
        <translation>Non calculé.</translation>
    </message>
    <message>
        <source>Not enough channels.</source>
        <translation>Pas assez de canaux.</translation>
    </message>
    <message>
        <source>Peak below threshold.</source>
        <translation>Pic sous le seuil.</translation>
    </message>
    <message>
        <source>Peak on edge.</source>
        <translation>Pic au bord.</translation>
    </message>
    <message>
        <source>Signal below threshold.</source>
        <translation>Signal sous le seuil.</translation>
    </message>
    <message>
        <source>Not enough peak channels.</source>
        <translation>Pas assez de canaux dans le pic.</translation>
    </message>
    <message>
        <source>Noise above threshold.</source>
        <translation>Bruit au-dessus du seuil.</translation>
    </message>
    <message>
        <source>Regression failed.</source>
        <translation>La régression a échoué.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::Reader</name>
    <message>
        <source>&quot;%1&quot; means nothing here</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;a pas de sens ici</translation>
    </message>
    <message>
        <source>there is no function &quot;%1&quot;</source>
        <translation>il n&apos;y a pas de fonction «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>no channel is called &quot;%1&quot;</source>
        <translation>aucun canal ne s&apos;appelle «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>a range of channels ends with a later channel that is not computed</source>
        <translation>une plage de canaux se termine par un canal ultérieur non calculé</translation>
    </message>
    <message>
        <source>a name of a channel is missing, or its bracket is not closed</source>
        <translation>le nom d&apos;un canal manque, ou son crochet n&apos;est pas fermé</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::RowFormula</name>
    <message>
        <source>this library was built without muparser, which reads expressions</source>
        <translation>cette bibliothèque est compilée sans muparser, qui lit les expressions</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::ScopeLegend</name>
    <message>
        <source>Legend</source>
        <translation>Légende</translation>
    </message>
    <message>
        <source>The channels with their newest values. A click, Space or Enter hides a channel or shows it again.</source>
        <translation>Les canaux avec leurs dernières valeurs. Un clic, Espace ou Entrée masque un canal ou le montre de nouveau.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpectrogramPlot</name>
    <message>
        <source>Mean X</source>
        <translation>Moyenne X</translation>
    </message>
    <message>
        <source>Mean Y</source>
        <translation>Moyenne Y</translation>
    </message>
    <message>
        <source>No Data</source>
        <translation>Pas de données</translation>
    </message>
    <message>
        <source>Out of bounds</source>
        <translation>Hors limites</translation>
    </message>
    <message>
        <source>Channel %1: %2</source>
        <translation>Canal %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotLegend</name>
    <message>
        <source>one spot: %1</source>
        <translation>un spot&#xa0;: %1</translation>
    </message>
    <message>
        <source>one spot below the target: -%1</source>
        <translation>un spot sous la cible&#xa0;: -%1</translation>
    </message>
    <message>
        <source>above: +%1</source>
        <translation>au-dessus&#xa0;: +%1</translation>
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
        <translation>Ligne %1
X %2
Y %3
Dose %4
Sigma %5</translation>
    </message>
    <message>
        <source>No spots in this map</source>
        <translation>Aucun spot sur cette carte</translation>
    </message>
    <message>
        <source>No spots</source>
        <translation>Aucun spot</translation>
    </message>
    <message>
        <source>No spots in the map to compare with</source>
        <translation>Aucun spot sur la carte de comparaison</translation>
    </message>
    <message>
        <source>Spots to compare with lie outside of this map</source>
        <translation>Des spots de comparaison sont hors de cette carte</translation>
    </message>
    <message>
        <source>Spots that cannot be drawn: %1</source>
        <translation>Spots impossibles à dessiner&#xa0;: %1</translation>
    </message>
    <message>
        <source>Spots to compare with that cannot be drawn: %1</source>
        <translation>Spots de comparaison impossibles à dessiner&#xa0;: %1</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Carte des spots</translation>
    </message>
    <message>
        <source>Spots: %1</source>
        <translation>Spots&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::SpotMapWidget</name>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Carte des spots</translation>
    </message>
    <message>
        <source>x(mm):</source>
        <translation>x (mm)&#xa0;:</translation>
    </message>
    <message>
        <source>y(mm):</source>
        <translation>y (mm)&#xa0;:</translation>
    </message>
    <message>
        <source>dose(Gp):</source>
        <translation>dose (Gp)&#xa0;:</translation>
    </message>
    <message>
        <source>The spots</source>
        <translation>Les spots</translation>
    </message>
    <message>
        <source>Actual</source>
        <translation>Réel</translation>
    </message>
    <message>
        <source>Blue where there is more dose than in the other map, red where there is less</source>
        <translation>Bleu où la dose dépasse celle de l&apos;autre carte, rouge où elle est plus faible</translation>
    </message>
    <message>
        <source>Diff</source>
        <translation>Diff.</translation>
    </message>
    <message>
        <source>The spots, with the difference over them</source>
        <translation>Les spots, avec la différence par-dessus</translation>
    </message>
    <message>
        <source>Overlay</source>
        <translation>Superposé</translation>
    </message>
    <message>
        <source>X Position (mm)</source>
        <translation>Position X (mm)</translation>
    </message>
    <message>
        <source>Y Position (mm)</source>
        <translation>Position Y (mm)</translation>
    </message>
    <message>
        <source>dose:</source>
        <translation>dose&#xa0;:</translation>
    </message>
    <message>
        <source>dose(%1):</source>
        <translation>dose (%1)&#xa0;:</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::StatisticsLabels</name>
    <message>
        <source>N/A</source>
        <translation>n.d.</translation>
    </message>
</context>
<context>
    <name>Corvale_Qt::TimeSpanBox</name>
    <message>
        <source>Time span</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>Time that the chart shows: choose one, or type 90 s, 2 h, 1.5 min or all.</source>
        <translation>Durée montrée par le tracé&#xa0;: à choisir, ou à saisir, comme 90 s, 2 h, 1.5 min ou tout.</translation>
    </message>
</context>
</TS>
