<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>EpicsText</name>
    <message>
        <source>the Channel Access client library (libca) was not found; install the package libca4.13.5, or set EPICS_BASE to the folder of an installation</source>
        <translation>la bibliothèque cliente Channel Access (libca) est introuvable&#xa0;; installez le paquet libca4.13.5, ou donnez à EPICS_BASE le dossier d&apos;une installation</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be ca:NAME or ca:NAME,NAME with names of process variables</source>
        <translation>«&#xa0;%1&#xa0;» devrait être ca:NOM ou ca:NOM,NOM avec des noms de variables de procédé</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 process variables; a window shows %3 at most</source>
        <translation>«&#xa0;%1&#xa0;» nomme %2 variables de procédé&#xa0;; une fenêtre en montre %3 au plus</translation>
    </message>
    <message>
        <source>Check the names, that the server runs, and EPICS_CA_ADDR_LIST if it is on another network; caget NAME shows whether this machine reaches it.</source>
        <translation>Vérifiez les noms, que le serveur tourne, et EPICS_CA_ADDR_LIST s&apos;il est sur un autre réseau&#xa0;; caget NOM montre si cette machine l&apos;atteint.</translation>
    </message>
    <message>
        <source>the Channel Access client library does not start</source>
        <translation>la bibliothèque cliente Channel Access ne démarre pas</translation>
    </message>
    <message>
        <source>%1: waveforms and single values cannot be read together, and no more than two waveforms; read the others in a window of their own</source>
        <translation>%1&#xa0;: les formes d&apos;onde et les valeurs simples ne se lisent pas ensemble, et deux formes d&apos;onde au plus&#xa0;; lisez les autres dans une fenêtre à part</translation>
    </message>
    <message>
        <source>searching for %1</source>
        <translation>recherche de %1</translation>
    </message>
    <message>
        <source>%1, without %2, which is not connected</source>
        <translation>%1, sans %2, non connecté</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>aucun serveur ne répond pour %1</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 a %2 valeurs&#xa0;; une fenêtre en affiche au plus %3</translation>
    </message>
    <message>
        <source>%1 is not a Channel Access client library that can be used</source>
        <translation>%1 n&apos;est pas une bibliothèque cliente Channel Access utilisable</translation>
    </message>
</context>
<context>
    <name>Monitor::AddSourceAction</name>
    <message>
        <source>&amp;Add source...</source>
        <translation>A&amp;jouter une source...</translation>
    </message>
    <message>
        <source>Add source</source>
        <translation>Ajouter une source</translation>
    </message>
</context>
<context>
    <name>Monitor::Appearance</name>
    <message>
        <source>Appea&amp;rance</source>
        <translation>Appare&amp;nce</translation>
    </message>
    <message>
        <source>As the des&amp;ktop</source>
        <translation>Comme &amp;le bureau</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Sombre</translation>
    </message>
</context>
<context>
    <name>Monitor::Baseline</name>
    <message>
        <source>ZEROED</source>
        <translation>MIS À ZÉRO</translation>
    </message>
    <message>
        <source>BACKGROUND SUBTRACTED</source>
        <translation>FOND SOUSTRAIT</translation>
    </message>
</context>
<context>
    <name>Monitor::BigNumbers</name>
    <message>
        <source>Big numbers - Corvale Monitor</source>
        <translation>Grands chiffres - Corvale Monitor</translation>
    </message>
    <message>
        <source>&amp;Show:</source>
        <translation>&amp;Montrer&#xa0;:</translation>
    </message>
    <message>
        <source>Beam: position and width</source>
        <translation>Faisceau&#xa0;: position et largeur</translation>
    </message>
    <message>
        <source>No readings</source>
        <translation>Aucune mesure</translation>
    </message>
    <message>
        <source>Beam</source>
        <translation>Faisceau</translation>
    </message>
    <message>
        <source>no valid data</source>
        <translation>pas de données valides</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULÉ</translation>
    </message>
    <message>
        <source>PAUSED</source>
        <translation>EN PAUSE</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>PÉRIMÉ</translation>
    </message>
    <message>
        <source>END</source>
        <translation>FIN</translation>
    </message>
</context>
<context>
    <name>Monitor::ClearUndo</name>
    <message>
        <source>&amp;Undo clear</source>
        <translation>&amp;Annuler l&apos;effacement</translation>
    </message>
    <message>
        <source>Bring back</source>
        <translation>Rétablir</translation>
    </message>
</context>
<context>
    <name>Monitor::CommonTape</name>
    <message>
        <source>%1 cannot be played together with others: %2. Open it alone to see what can be read of it</source>
        <translation>%1 ne peut pas être lu avec les autres&#xa0;: %2. Ouvrez-le seul pour voir ce qui peut en être lu</translation>
    </message>
    <message>
        <source>none of the recordings can be read; open them one by one to see why</source>
        <translation>aucun des enregistrements n&apos;est lisible&#xa0;; ouvrez-les un par un pour savoir pourquoi</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPane</name>
    <message>
        <source>The state of this source</source>
        <translation>L&apos;état de cette source</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>Fermer %1</translation>
    </message>
    <message>
        <source>Close this source; its recording ends</source>
        <translation>Fermer cette source&#xa0;; son enregistrement se termine</translation>
    </message>
</context>
<context>
    <name>Monitor::CompanionPanes</name>
    <message>
        <source>Closing the source ends its recording. What was recorded stays in %1.</source>
        <translation>Fermer la source met fin à son enregistrement. Ce qui a été enregistré reste dans %1.</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>Terminer l&apos;enregistrement&#xa0;?</translation>
    </message>
</context>
<context>
    <name>Monitor::Companions</name>
    <message>
        <source>%1 is a source; record to another file</source>
        <translation>%1 est une source&#xa0;; enregistrez dans un autre fichier</translation>
    </message>
</context>
<context>
    <name>Monitor::CompressionWait</name>
    <message>
        <source>Compressing the recording</source>
        <translation>Compression de l&apos;enregistrement</translation>
    </message>
    <message>
        <source>&amp;Quit without compressing</source>
        <translation>&amp;Quitter sans compresser</translation>
    </message>
    <message>
        <source>%1 is being compressed. Nothing is lost if you do not wait.</source>
        <translation>%1 est en cours de compression. Rien n&apos;est perdu si vous n&apos;attendez pas.</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedAction</name>
    <message>
        <source>&amp;Computed channels...</source>
        <translation>&amp;Canaux calculés...</translation>
    </message>
    <message>
        <source>Channels that are computed from others: sums, ratios, positions (Ctrl+K).</source>
        <translation>Canaux calculés à partir d&apos;autres&#xa0;: sommes, rapports, positions (Ctrl+K).</translation>
    </message>
</context>
<context>
    <name>Monitor::ComputedDialog</name>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Supprimer</translation>
    </message>
    <message>
        <source>What the channel is called in charts, tables and recordings (Alt+N)</source>
        <translation>Le nom du canal dans les graphiques, les tableaux et les enregistrements (Alt+N)</translation>
    </message>
    <message>
        <source>The symbol of its unit, such as nA; empty for none (Alt+U)</source>
        <translation>Le symbole de son unité, par exemple nA&#xa0;; vide s&apos;il n&apos;y en a pas (Alt+U)</translation>
    </message>
    <message>
        <source>Computed channels</source>
        <translation>Canaux calculés</translation>
    </message>
    <message>
        <source>There is no stream yet. Whether the expressions make sense is seen when one begins.</source>
        <translation>Il n&apos;y a pas encore de flux. La validité des expressions apparaîtra quand il y en aura un.</translation>
    </message>
    <message>
        <source>The stream has %1. An expression is like (A - B) / (A + B), avg(A, B) or fit_position([left plate] .. D).</source>
        <translation>Le flux contient %1. Une expression s&apos;écrit par exemple (A - B) / (A + B), avg(A, B) ou fit_position([left plate] .. D).</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>A&amp;jouter</translation>
    </message>
    <message>
        <source>Add a computed channel (Alt+A)</source>
        <translation>Ajouter un canal calculé (Alt+J)</translation>
    </message>
    <message>
        <source>Remove the selected channel (Alt+R)</source>
        <translation>Supprimer le canal choisi (Alt+S)</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>&amp;Unité&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Expression:</source>
        <translation>&amp;Expression&#xa0;:</translation>
    </message>
    <message>
        <source>+ - * / ^, comparisons, c ? a : b, sum, avg, min, max, sqrt, abs, exp, ln, log10 and others; a name that is not one word stands in brackets (Alt+E)</source>
        <translation>+ - * / ^, comparaisons, c ? a : b, sum, avg, min, max, sqrt, abs, exp, ln, log10 et autres ; un nom de plusieurs mots s&apos;écrit entre crochets (Alt+E)</translation>
    </message>
    <message>
        <source>New channel</source>
        <translation>Nouveau canal</translation>
    </message>
    <message>
        <source>there would be more than %1 channels</source>
        <translation>il y aurait plus de %1 canaux</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>a name or a unit cannot have the signs =, [ and ]</source>
        <translation>un nom ou une unité ne peut pas contenir les signes =, [ et ]</translation>
    </message>
    <message>
        <source>This stream has no independent channels, from which others are computed.</source>
        <translation>Ce flux n&apos;a pas de canaux indépendants à partir desquels d&apos;autres sont calculés.</translation>
    </message>
</context>
<context>
    <name>Monitor::ConnectDialog</name>
    <message>
        <source>&amp;Keep</source>
        <translation>&amp;Garder</translation>
    </message>
    <message>
        <source>For&amp;get</source>
        <translation>O&amp;ublier</translation>
    </message>
    <message>
        <source>&amp;Test</source>
        <translation>&amp;Tester</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Connecter</translation>
    </message>
    <message>
        <source>Test shows the first lines of the source and what they are read as.</source>
        <translation>Tester montre les premières lignes de la source et comment elles sont lues.</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Connecter</translation>
    </message>
    <message>
        <source>Kind of source</source>
        <translation>Type de source</translation>
    </message>
    <message>
        <source>Na&amp;me:</source>
        <translation>&amp;Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Connections that were kept. Type a name and choose Keep to add one.</source>
        <translation>Connexions gardées. Saisir un nom et choisir Garder pour en ajouter une.</translation>
    </message>
    <message>
        <source>a name for this connection, if it is to be kept</source>
        <translation>un nom pour cette connexion, si elle doit être gardée</translation>
    </message>
    <message>
        <source>On the command line: corvale-monitor &quot;%1&quot;</source>
        <translation>En ligne de commande&#xa0;: corvale-monitor &quot;%1&quot;</translation>
    </message>
    <message>
        <source>This source is open: its readings are in the window.</source>
        <translation>Cette source est ouverte&#xa0;: ses mesures sont dans la fenêtre.</translation>
    </message>
    <message>
        <source>Fill in the empty field, to test or to connect.</source>
        <translation>Remplir le champ vide pour tester ou connecter.</translation>
    </message>
</context>
<context>
    <name>Monitor::CrashNotice</name>
    <message>
        <source>It was recording to %1, and the recording ends there.</source>
        <translation>Il enregistrait dans %1&#xa0;; l&apos;enregistrement s&apos;y arrête.</translation>
    </message>
    <message>
        <source>It was recording to %1; the recording goes on in %2.</source>
        <translation>Il enregistrait dans %1&#xa0;; l&apos;enregistrement continue dans %2.</translation>
    </message>
    <message>
        <source>The program crashed at %1 UTC: %2.</source>
        <translation>Le programme a planté à %1 UTC&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The program that was started at %1 UTC did not end properly: it was killed, or the computer stopped.</source>
        <translation>Le programme démarré à %1 UTC ne s&apos;est pas terminé normalement&#xa0;: il a été tué, ou l&apos;ordinateur s&apos;est arrêté.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Show report</source>
        <translation>Afficher le rapport</translation>
    </message>
</context>
<context>
    <name>Monitor::DisplayTabs</name>
    <message>
        <source>Scope</source>
        <translation>Oscilloscope</translation>
    </message>
    <message>
        <source>2D profile</source>
        <translation>Profil 2D</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Spot map</source>
        <translation>Carte des spots</translation>
    </message>
    <message>
        <source>Position errors</source>
        <translation>Erreurs de position</translation>
    </message>
    <message>
        <source>%1; in all layers %2</source>
        <translation>%1&#xa0;; dans toutes les couches %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1&#xa0;; %2</translation>
    </message>
</context>
<context>
    <name>Monitor::EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>Édi&amp;tion</translation>
    </message>
    <message>
        <source>&amp;Copy values</source>
        <translation>Copier &amp;les valeurs</translation>
    </message>
    <message>
        <source>C&amp;lear readings...</source>
        <translation>&amp;Effacer les mesures...</translation>
    </message>
</context>
<context>
    <name>Monitor::ExportActions</name>
    <message>
        <source>Save rea&amp;dings shown...</source>
        <translation>Enregistrer les mesures &amp;affichées...</translation>
    </message>
    <message>
        <source>Save readings between &amp;markers...</source>
        <translation>Enregistrer les &amp;mesures entre marqueurs...</translation>
    </message>
    <message>
        <source>Save readings</source>
        <translation>Enregistrer les mesures</translation>
    </message>
    <message>
        <source>Set both markers in the chart first: switch them on (Ctrl+M), then click with the left and with the right button, or press 1 and 2.</source>
        <translation>Placez d&apos;abord les deux marqueurs dans le graphique&#xa0;: activez-les (Ctrl+M), puis cliquez avec le bouton gauche et avec le bouton droit, ou appuyez sur 1 et 2.</translation>
    </message>
    <message>
        <source>CSV (*.csv)</source>
        <translation>CSV (*.csv)</translation>
    </message>
    <message>
        <source>Saving readings</source>
        <translation>Enregistrement des mesures</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Only the strip chart and the scope show readings over time. Choose one of them first.</source>
        <translation>Seuls le défilement et l&apos;oscilloscope montrent les mesures dans le temps. Choisir d&apos;abord l&apos;un des deux.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2. Choisir un autre fichier.</translation>
    </message>
</context>
<context>
    <name>Monitor::FileForm</name>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Parcourir...</translation>
    </message>
    <message>
        <source>&amp;File:</source>
        <translation>&amp;Fichier&#xa0;:</translation>
    </message>
    <message>
        <source>A recording of this program, a file saved by the library, or a table with a line of names and a line for each time.</source>
        <translation>Un enregistrement de ce programme, un fichier de la bibliothèque, ou une table avec une ligne de noms et une ligne pour chaque instant.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Choose a recording</source>
        <translation>Choisir un enregistrement</translation>
    </message>
    <message>
        <source>Tables (*.csv *.txt *.dat);;All files (*)</source>
        <translation>Tables (*.csv *.txt *.dat);;Tous les fichiers (*)</translation>
    </message>
</context>
<context>
    <name>Monitor::FileMenu</name>
    <message>
        <source>&amp;File</source>
        <translation>F&amp;ichier</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>O&amp;uvrir...</translation>
    </message>
    <message>
        <source>Open recen&amp;t</source>
        <translation>&amp;Ouvrir récent</translation>
    </message>
    <message>
        <source>&amp;Connect...</source>
        <translation>Co&amp;nnecter...</translation>
    </message>
    <message>
        <source>C&amp;lose source</source>
        <translation>&amp;Fermer la source</translation>
    </message>
    <message>
        <source>&amp;Settings...</source>
        <translation>Ré&amp;glages...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Open a recording</source>
        <translation>Ouvrir un enregistrement</translation>
    </message>
    <message>
        <source>&amp;Forget these</source>
        <translation>Oublier &amp;ceux-ci</translation>
    </message>
    <message>
        <source>Recordings and tables (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;All files (*)</source>
        <translation>Enregistrements et tableaux (*.csv *.txt *.dat *.zst *.h5 *.hdf5 *.nxs);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Read a&amp;gain as...</source>
        <translation>Relire au&amp;trement...</translation>
    </message>
</context>
<context>
    <name>Monitor::FileSource</name>
    <message>
        <source>the file is empty</source>
        <translation>le fichier est vide</translation>
    </message>
    <message>
        <source>it has names or comments, but no row with numbers</source>
        <translation>il a des noms ou des commentaires, mais aucune ligne de nombres</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 ne peut pas être ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>fin de %1 atteinte</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>la lecture de %1 a échoué&#xa0;: %2</translation>
    </message>
    <message>
        <source>The file must be a recording, a table with one line of names and one line for each time, or HDF5.</source>
        <translation>Le fichier doit être un enregistrement, une table avec une ligne de noms et une ligne pour chaque instant, ou HDF5.</translation>
    </message>
    <message>
        <source>Check the path and whether this user may read the file.</source>
        <translation>Vérifier le chemin et le droit de lecture de cet utilisateur.</translation>
    </message>
    <message>
        <source>nothing of the file can be read</source>
        <translation>rien dans le fichier n&apos;est lisible</translation>
    </message>
</context>
<context>
    <name>Monitor::FirstHint</name>
    <message>
        <source>Do not show again</source>
        <translation>Ne plus montrer</translation>
    </message>
    <message>
        <source>This beam is simulated.</source>
        <translation>Ce faisceau est simulé.</translation>
    </message>
    <message>
        <source>This is %1.</source>
        <translation>Voici %1.</translation>
    </message>
    <message>
        <source> File &gt; Open... plays a recording, File &gt; Connect... reads an instrument. Space pauses, Ctrl+R records, F1 shows the first steps.</source>
        <translation> Fichier &gt; Ouvrir... joue un enregistrement, Fichier &gt; Connecter... lit un instrument. Espace met en pause, Ctrl+R enregistre, F1 montre les premiers pas.</translation>
    </message>
</context>
<context>
    <name>Monitor::FrameFeeder</name>
    <message>
        <source>arb. units</source>
        <translation>unités arb.</translation>
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
        <translation># Touches

Alt et la lettre soulignée ouvrent un menu.

| touche | effet |
|---|---|
</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>in the scope: saves the readings that are shown</source>
        <translation>dans l&apos;oscilloscope&#xa0;: enregistre les mesures affichées</translation>
    </message>
    <message>
        <source>Left, Right, Delete</source>
        <translation>Gauche, Droite, Suppr</translation>
    </message>
    <message>
        <source>in the scope: moves or removes the markers</source>
        <translation>dans l&apos;oscilloscope&#xa0;: déplace ou supprime les marqueurs</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Entrée</translation>
    </message>
    <message>
        <source>in the values: shows or hides the channel</source>
        <translation>dans les valeurs&#xa0;: montre ou masque le canal</translation>
    </message>
    <message>
        <source>Page Up, Page Down</source>
        <translation>Page haut, Page bas</translation>
    </message>
    <message>
        <source>in the spot map: goes through the layers</source>
        <translation>dans la carte des spots&#xa0;: parcourt les couches</translation>
    </message>
    <message>
        <source>Ctrl+Shift+O</source>
        <translation>Ctrl+Maj+O</translation>
    </message>
    <message>
        <source>moves a display into a separate window, or back</source>
        <translation>déplace un affichage dans une fenêtre séparée, ou le ramène</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;First steps</source>
        <translation>P&amp;remiers pas</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>&amp;Touches</translation>
    </message>
    <message>
        <source>&amp;Line protocol</source>
        <translation>Protocole &amp;de lignes</translation>
    </message>
    <message>
        <source>L&amp;icences</source>
        <translation>&amp;Licences</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À &amp;propos</translation>
    </message>
    <message>
        <source>+, -; with Ctrl</source>
        <translation>+, -; avec Ctrl</translation>
    </message>
    <message>
        <source>in the scope: zooms time; zooms the values</source>
        <translation>dans l&apos;oscilloscope&#xa0;: zoome le temps&#xa0;; zoome les valeurs</translation>
    </message>
    <message>
        <source>Left, Right, Page Up, Page Down, Up, Down</source>
        <translation>Gauche, Droite, Page haut, Page bas, Haut, Bas</translation>
    </message>
    <message>
        <source>in the scope: moves the picture</source>
        <translation>dans l&apos;oscilloscope&#xa0;: déplace l&apos;image</translation>
    </message>
    <message>
        <source>Home, End</source>
        <translation>Début, Fin</translation>
    </message>
    <message>
        <source>in the scope: the oldest readings, the newest ones</source>
        <translation>dans l&apos;oscilloscope&#xa0;: les mesures les plus anciennes, les plus récentes</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Retour arrière</translation>
    </message>
    <message>
        <source>in the scope: what was shown before</source>
        <translation>dans l&apos;oscilloscope&#xa0;: ce qui était affiché avant</translation>
    </message>
    <message>
        <source>1, 2</source>
        <translation>1, 2</translation>
    </message>
    <message>
        <source>in the scope: places the markers</source>
        <translation>dans l&apos;oscilloscope&#xa0;: place les marqueurs</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>in the scope: copies what the markers read</source>
        <translation>dans l&apos;oscilloscope&#xa0;: copie ce que lisent les marqueurs</translation>
    </message>
    <message>
        <source>on the time line: plays or pauses the tape</source>
        <translation>sur la ligne de temps&#xa0;: lance la lecture ou la met en pause</translation>
    </message>
    <message>
        <source>Left, Right; with Shift</source>
        <translation>Gauche, Droite&#xa0;; avec Maj</translation>
    </message>
    <message>
        <source>on the time line: 1 % or 10 % of the tape back or on</source>
        <translation>sur la ligne de temps&#xa0;: 1 % ou 10 % de l&apos;enregistrement en arrière ou en avant</translation>
    </message>
    <message>
        <source>on the time line: the event or gap before or after</source>
        <translation>sur la ligne de temps&#xa0;: l&apos;événement ou la lacune d&apos;avant ou d&apos;après</translation>
    </message>
    <message>
        <source>comma, period</source>
        <translation>virgule, point</translation>
    </message>
    <message>
        <source>on the time line: one reading back or on, and pauses</source>
        <translation>sur la ligne de temps&#xa0;: une mesure en arrière ou en avant, et met en pause</translation>
    </message>
    <message>
        <source>[, ], Backspace</source>
        <translation>[, ], Retour arrière</translation>
    </message>
    <message>
        <source>on the time line: repeats from here, up to here, nothing</source>
        <translation>sur la ligne de temps&#xa0;: répète à partir d&apos;ici, jusqu&apos;ici, rien</translation>
    </message>
</context>
<context>
    <name>Monitor::HelpWindow</name>
    <message>
        <source>First steps</source>
        <extracomment>The name of the file with this page: first-steps.de.md in German.</extracomment>
        <translation>Premiers pas</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Touches</translation>
    </message>
    <message>
        <source>Line protocol</source>
        <translation>Protocole de lignes</translation>
    </message>
    <message>
        <source>Licences</source>
        <translation>Licences</translation>
    </message>
    <message>
        <source>About Corvale Monitor</source>
        <translation>À propos de Corvale Monitor</translation>
    </message>
    <message>
        <source>first-steps.md</source>
        <translation>first-steps.fr.md</translation>
    </message>
    <message>
        <source># Corvale Monitor %1

Shows the readings of instruments that measure beams of charged particles.

Free software under LGPL-2.1-or-later; *Help &gt; Licences* has the text. It runs on %2.</source>
        <translation># Corvale Monitor %1

Affiche les mesures d&apos;instruments qui mesurent des faisceaux de particules chargées.

Logiciel libre sous LGPL-2.1-or-later&#xa0;; *Aide &gt; Licences* en donne le texte. Il fonctionne sous %2.</translation>
    </message>
    <message>
        <source>| part | version | licence |
|---|---|---|
</source>
        <translation>| composant | version | licence |
|---|---|---|
</translation>
    </message>
</context>
<context>
    <name>Monitor::ImportDialog</name>
    <message>
        <source>How is %1 read?</source>
        <translation>Comment lire %1&#xa0;?</translation>
    </message>
    <message>
        <source>This table is read as it is.</source>
        <translation>Cette table est lue telle quelle.</translation>
    </message>
    <message>
        <source>This is not a recording of the monitor: %1.</source>
        <translation>Ce n&apos;est pas un enregistrement du moniteur&#xa0;: %1.</translation>
    </message>
    <message>
        <source>&amp;Columns are separated by:</source>
        <translation>&amp;Colonnes séparées par&#xa0;:</translation>
    </message>
    <message>
        <source>commas, or blanks</source>
        <translation>virgules, ou espaces</translation>
    </message>
    <message>
        <source>commas</source>
        <translation>virgules</translation>
    </message>
    <message>
        <source>semicolons</source>
        <translation>points-virgules</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>tabulations</translation>
    </message>
    <message>
        <source>blanks</source>
        <translation>espaces</translation>
    </message>
    <message>
        <source>bars</source>
        <translation>barres verticales</translation>
    </message>
    <message>
        <source>&amp;Decimal sign:</source>
        <translation>S&amp;igne décimal&#xa0;:</translation>
    </message>
    <message>
        <source>point: 1.25</source>
        <translation>point&#xa0;: 1.25</translation>
    </message>
    <message>
        <source>comma: 1,25</source>
        <translation>virgule&#xa0;: 1,25</translation>
    </message>
    <message>
        <source>&amp;Names of columns:</source>
        <translation>&amp;Noms des colonnes&#xa0;:</translation>
    </message>
    <message>
        <source>in the first line, if it is not all numbers</source>
        <translation>sur la première ligne, si elle n&apos;a pas que des nombres</translation>
    </message>
    <message>
        <source>in the first line</source>
        <translation>sur la première ligne</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>&amp;Time:</source>
        <translation>Te&amp;mps&#xa0;:</translation>
    </message>
    <message>
        <source>Which column holds the time of a row, or that none does</source>
        <translation>Quelle colonne contient le temps d&apos;une ligne, ou aucune</translation>
    </message>
    <message>
        <source>in the column with such a name</source>
        <translation>dans la colonne ainsi nommée</translation>
    </message>
    <message>
        <source>in the column with this number</source>
        <translation>dans la colonne de ce numéro</translation>
    </message>
    <message>
        <source>in no column; rows are equally spaced</source>
        <translation>dans aucune colonne&#xa0;; lignes équidistantes</translation>
    </message>
    <message>
        <source>Co&amp;lumn of the time:</source>
        <translation>Colonne &amp;du temps&#xa0;:</translation>
    </message>
    <message>
        <source>Time &amp;between two rows:</source>
        <translation>Temps &amp;entre deux lignes&#xa0;:</translation>
    </message>
    <message>
        <source>For a table without times, like 1ms, 0.02s or 1min</source>
        <translation>Pour une table sans temps, comme 1ms, 0.02s ou 1min</translation>
    </message>
    <message>
        <source>Times &amp;are:</source>
        <translation>Les &amp;temps sont&#xa0;:</translation>
    </message>
    <message>
        <source>numbers, in seconds or the unit of the name</source>
        <translation>des nombres, en secondes ou dans l&apos;unité du nom</translation>
    </message>
    <message>
        <source>dates; UTC where no zone is written</source>
        <translation>des dates&#xa0;; UTC si aucun fuseau n&apos;est écrit</translation>
    </message>
    <message>
        <source>dates; local time where no zone is written</source>
        <translation>des dates&#xa0;; heure locale si aucun fuseau n&apos;est écrit</translation>
    </message>
    <message>
        <source>&amp;Form of dates:</source>
        <translation>&amp;Format des dates&#xa0;:</translation>
    </message>
    <message>
        <source>Empty for ISO 8601 (2026-03-01T12:00:00.5), or like dd.MM.yyyy HH:mm:ss.zzz</source>
        <translation>Vide pour ISO 8601 (2026-03-01T12:00:00.5), ou par exemple dd.MM.yyyy HH:mm:ss.zzz</translation>
    </message>
    <message>
        <source>Lines to &amp;skip first:</source>
        <translation>Lignes à &amp;sauter d&apos;abord&#xa0;:</translation>
    </message>
    <message>
        <source>Co&amp;mments begin with:</source>
        <translation>&amp;Les commentaires commencent par&#xa0;:</translation>
    </message>
    <message>
        <source>One sign; # always begins one</source>
        <translation>Un signe&#xa0;; # en commence toujours un</translation>
    </message>
    <message>
        <source>The first rows as they will be read</source>
        <translation>Les premières lignes telles qu&apos;elles seront lues</translation>
    </message>
    <message>
        <source>Please state the time between two rows, for example 1ms.</source>
        <translation>Indiquer le temps entre deux lignes, par exemple 1ms.</translation>
    </message>
    <message>
        <source>It cannot be read this way: %1.</source>
        <translation>Elle ne peut pas être lue ainsi&#xa0;: %1.</translation>
    </message>
    <message>
        <source>None of its rows can be read this way; the first is %1</source>
        <translation>Aucune ligne ne peut être lue ainsi&#xa0;; la première est %1</translation>
    </message>
    <message>
        <source>It contains no rows.</source>
        <translation>Elle ne contient aucune ligne.</translation>
    </message>
    <message>
        <source>%1 of the first lines cannot be read this way; the first is %2</source>
        <translation>%1 des premières lignes ne peuvent être lues ainsi&#xa0;; la première est %2</translation>
    </message>
    <message>
        <source>All of the first rows can be read.</source>
        <translation>Toutes les premières lignes sont lisibles.</translation>
    </message>
    <message>
        <source>All of the first rows can be read. The time 0 is %1 (UTC).</source>
        <translation>Toutes les premières lignes sont lisibles. Le temps 0 est %1 (UTC).</translation>
    </message>
    <message>
        <source>On the command line: --import &quot;%1&quot;</source>
        <translation>En ligne de commande&#xa0;: --import &quot;%1&quot;</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. It has no line of names by which others of its kind are known, so the answer holds for this time.</source>
        <translation>Le tableau est relu depuis le début. Il n&apos;a pas de ligne de noms à laquelle on reconnaîtrait d&apos;autres du même genre&#xa0;; la réponse ne vaut donc que cette fois.</translation>
    </message>
    <message>
        <source>The table is read again from its beginning. The answer is kept for files with the same header.</source>
        <translation>Le tableau est relu depuis le début. La réponse est conservée pour les fichiers qui ont le même en-tête.</translation>
    </message>
</context>
<context>
    <name>Monitor::LatestValuePanel</name>
    <message>
        <source>&amp;All</source>
        <translation>T&amp;ous</translation>
    </message>
    <message>
        <source>Show all channels</source>
        <translation>Montrer tous les canaux</translation>
    </message>
    <message>
        <source>N&amp;one</source>
        <translation>A&amp;ucun</translation>
    </message>
    <message>
        <source>Show no channel</source>
        <translation>Ne montrer aucun canal</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>Dernières valeurs</translation>
    </message>
</context>
<context>
    <name>Monitor::LeadHeading</name>
    <message>
        <source>Of %1, the first source:</source>
        <translation>Pour %1, la première source&#xa0;:</translation>
    </message>
</context>
<context>
    <name>Monitor::LeftOutNotice</name>
    <message>
        <source>the detector is not used: %1; correct its description, or choose another one in File &gt; Settings...</source>
        <translation>le détecteur n&apos;est pas utilisé&#xa0;: %1&#xa0;; corrigez sa description ou choisissez-en un autre dans Fichier &gt; Réglages...</translation>
    </message>
    <message>
        <source>not all limits of the stream are used: %1; Measure &gt; Limits sets them here</source>
        <translation>les limites du flux ne sont pas toutes utilisées&#xa0;: %1&#xa0;; Mesure &gt; Limites les règle ici</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitActions</name>
    <message>
        <source>&amp;Acknowledge alarms</source>
        <translation>&amp;Acquitter les alarmes</translation>
    </message>
    <message>
        <source>Alarms make a &amp;sound</source>
        <translation>Alarmes &amp;sonores</translation>
    </message>
    <message>
        <source>&amp;Limits...</source>
        <translation>&amp;Limites...</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitMarks</name>
    <message>
        <source>ALARM %1</source>
        <translation>ALARME %1</translation>
    </message>
    <message>
        <source>WARN %1</source>
        <translation>ALERTE %1</translation>
    </message>
    <message>
        <source>%1, above its limit</source>
        <translation>%1, au-dessus de sa limite</translation>
    </message>
    <message>
        <source>%1, below its limit</source>
        <translation>%1, sous sa limite</translation>
    </message>
</context>
<context>
    <name>Monitor::LimitsDialog</name>
    <message>
        <source>Limits</source>
        <translation>Limites</translation>
    </message>
    <message>
        <source>Limits of each channel</source>
        <translation>Limites de chaque canal</translation>
    </message>
    <message>
        <source>Low alarm</source>
        <translation>Alarme basse</translation>
    </message>
    <message>
        <source>Low warning</source>
        <translation>Alerte basse</translation>
    </message>
    <message>
        <source>High warning</source>
        <translation>Alerte haute</translation>
    </message>
    <message>
        <source>High alarm</source>
        <translation>Alarme haute</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 en %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number with a decimal point</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un nombre avec point décimal</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Readings beyond a limit are a warning or an alarm. An empty cell means no limit. Numbers have a decimal point.</source>
        <translation>Les mesures au-delà d&apos;une limite donnent une alerte ou une alarme. Une case vide signifie pas de limite. Les nombres ont un point décimal.</translation>
    </message>
    <message>
        <source>Limits are set for the channels of a stream, and there are none yet.</source>
        <translation>Les limites se règlent pour les canaux d&apos;un flux, et il n&apos;y en a pas encore.</translation>
    </message>
</context>
<context>
    <name>Monitor::LineSource</name>
    <message>
        <source>opening %1</source>
        <translation>ouverture de %1</translation>
    </message>
    <message>
        <source>%1; trying again in %2 s</source>
        <translation>%1&#xa0;; nouvel essai dans %2 s</translation>
    </message>
    <message>
        <source>%1; waiting for the next one</source>
        <translation>%1&#xa0;; attente de la suivante</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>fin de %1 atteinte</translation>
    </message>
    <message>
        <source>%1 has been silent for %2 s</source>
        <translation>%1 se tait depuis %2 s</translation>
    </message>
</context>
<context>
    <name>Monitor::MeasureMenu</name>
    <message>
        <source>&amp;Measure</source>
        <translation>&amp;Mesure</translation>
    </message>
    <message>
        <source>&amp;Limits</source>
        <translation>&amp;Limites</translation>
    </message>
    <message>
        <source>&amp;Zero</source>
        <translation>&amp;Zéro</translation>
    </message>
    <message>
        <source>Subtracts the newest reading of each channel from what is shown.</source>
        <translation>Soustrait la dernière mesure de chaque canal de ce qui est affiché.</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Fond</translation>
    </message>
    <message>
        <source>&amp;Remove zero and background</source>
        <translation>&amp;Retirer le zéro et le fond</translation>
    </message>
    <message>
        <source>&amp;Average of the scope</source>
        <translation>&amp;Moyenne de l&apos;oscilloscope</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Aucune</translation>
    </message>
    <message>
        <source>&amp;Markers</source>
        <translation>M&amp;arqueurs</translation>
    </message>
    <message>
        <source>Two clicks on the scope place markers; the numbers between them stand beside it.</source>
        <translation>Deux clics sur l&apos;oscilloscope placent des marqueurs&#xa0;; les nombres entre eux sont à côté.</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorStatusBar</name>
    <message>
        <source>Where the readings come from</source>
        <translation>D&apos;où viennent les mesures</translation>
    </message>
    <message>
        <source>Abnormal states</source>
        <translation>États anormaux</translation>
    </message>
    <message>
        <source>Readings per second</source>
        <translation>Mesures par seconde</translation>
    </message>
    <message>
        <source>Lines that could not be used; the log lists them</source>
        <translation>Lignes inutilisables&#xa0;; le journal les liste</translation>
    </message>
    <message>
        <source>Pauses longer than three of the usual intervals</source>
        <translation>Pauses de plus de trois pas habituels</translation>
    </message>
    <message>
        <source>The file that is being recorded (Ctrl+R)</source>
        <translation>Le fichier en cours d&apos;enregistrement (Ctrl+R)</translation>
    </message>
    <message>
        <source>Time, UTC</source>
        <translation>Heure, UTC</translation>
    </message>
    <message>
        <source>%1 /s</source>
        <translation>%1 /s</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULÉ</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>PÉRIMÉ</translation>
    </message>
    <message>
        <source>END</source>
        <translation>FIN</translation>
    </message>
    <message>
        <source>DISK FULL IN %1</source>
        <translation>DISQUE PLEIN DANS %1</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>ENREGISTREMENT EN ÉCHEC</translation>
    </message>
    <message>
        <source>%1 (over, F8 acknowledges)</source>
        <translation>%1 (terminé, F8 acquitte)</translation>
    </message>
    <message>
        <source>%1 and %2 more</source>
        <translation>%1 et %2 de plus</translation>
    </message>
    <message>
        <source>not recording</source>
        <translation>non enregistré</translation>
    </message>
    <message>
        <source>REC %1, %2</source>
        <translation>REC %1, %2</translation>
    </message>
    <message>
        <source>%1, room for %2</source>
        <translation>%1, place pour %2</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>aucune mesure depuis trois intervalles habituels&#xa0;; vérifier le faisceau et l&apos;instrument</translation>
    </message>
    <message>
        <source>what is shown stands still; Space shows the readings that wait</source>
        <translation>l&apos;affichage est figé&#xa0;; Espace montre les mesures en attente</translation>
    </message>
    <message>
        <source>no instrument is read; File &gt; Connect... reads one</source>
        <translation>aucun instrument n&apos;est lu&#xa0;; Fichier &gt; Connecter... en lit un</translation>
    </message>
    <message>
        <source>the source has delivered everything; File &gt; Open... opens another one</source>
        <translation>la source a tout livré&#xa0;; Fichier &gt; Ouvrir... en ouvre une autre</translation>
    </message>
    <message>
        <source>%1. Make room, or record to another disk; readings wait meanwhile</source>
        <translation>%1. Faire de la place, ou enregistrer sur un autre disque&#xa0;; les mesures attendent entre-temps</translation>
    </message>
    <message>
        <source>make room, or record to another disk</source>
        <translation>faire de la place, ou enregistrer sur un autre disque</translation>
    </message>
    <message>
        <source>F8 acknowledges, Measure &gt; Limits changes the limits; the log says when each was passed</source>
        <translation>F8 acquitte, Mesure &gt; Limites change les limites&#xa0;; le journal contient chaque passage</translation>
    </message>
    <message>
        <source>compressing %1, %2 %</source>
        <translation>compression de %1, %2 %</translation>
    </message>
    <message>
        <source>%1: %2, %3</source>
        <translation>%1&#xa0;: %2, %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>the recording has a gap here: the values shown are from before it</source>
        <translation>l&apos;enregistrement a un trou ici&#xa0;: les valeurs affichées datent d&apos;avant</translation>
    </message>
</context>
<context>
    <name>Monitor::MonitorWindow</name>
    <message>
        <source>Latest &amp;values</source>
        <translation>Dernières &amp;valeurs</translation>
    </message>
    <message>
        <source>Statist&amp;ics</source>
        <translation>&amp;Statistique</translation>
    </message>
    <message>
        <source>&amp;Log</source>
        <translation>&amp;Journal</translation>
    </message>
    <message>
        <source>Latest values</source>
        <translation>Dernières valeurs</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistique</translation>
    </message>
    <message>
        <source>Log (UTC)</source>
        <translation>Journal (UTC)</translation>
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
        <translation>sans unité</translation>
    </message>
    <message>
        <source>%1, channel %2, %3</source>
        <translation>%1, canal %2, %3</translation>
    </message>
    <message>
        <source>no reading</source>
        <translation>aucune mesure</translation>
    </message>
    <message>
        <source>%1 %2, over range</source>
        <translation>%1 %2, hors plage</translation>
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
        <translation>Aucune source n&apos;est ouverte</translation>
    </message>
    <message>
        <source>File &gt; Open... plays a recording, File &gt; Connect... reads an instrument.</source>
        <translation>Fichier &gt; Ouvrir... joue un enregistrement, Fichier &gt; Connecter... lit un instrument.</translation>
    </message>
</context>
<context>
    <name>Monitor::PgmSource</name>
    <message>
        <source>Check the path and whether this user may read it; a folder needs files called *.pgm, with grey images of at most 256 x 256 pixels.</source>
        <translation>Vérifier le chemin et le droit de lecture&#xa0;; un dossier doit contenir des fichiers *.pgm, images grises d&apos;au plus 256 x 256 pixels.</translation>
    </message>
    <message>
        <source>%1 has no files called *.pgm</source>
        <translation>%1 n&apos;a pas de fichiers *.pgm</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 ne peut pas être ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>reached the end of %1</source>
        <translation>fin de %1 atteinte</translation>
    </message>
    <message>
        <source>reading %1 failed: %2</source>
        <translation>la lecture de %1 a échoué&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureActions</name>
    <message>
        <source>Save &amp;picture...</source>
        <translation>Enregistrer &amp;l&apos;image...</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>&amp;Imprimer...</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Enregistrer l&apos;image</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Imprimer</translation>
    </message>
    <message>
        <source>The printer %1 did not take the picture. Choose another one, or save the picture instead.</source>
        <translation>L&apos;imprimante %1 n&apos;a pas pris l&apos;image. En choisir une autre, ou enregistrer l&apos;image.</translation>
    </message>
    <message>
        <source>Copy &amp;picture</source>
        <translation>&amp;Copier l&apos;image</translation>
    </message>
</context>
<context>
    <name>Monitor::PictureDialog</name>
    <message>
        <source>&amp;Title:</source>
        <translation>&amp;Titre&#xa0;:</translation>
    </message>
    <message>
        <source>A title above the picture (Alt+T)</source>
        <translation>Un titre au-dessus de l&apos;image (Alt+T)</translation>
    </message>
    <message>
        <source>T&amp;ime</source>
        <translation>&amp;Heure</translation>
    </message>
    <message>
        <source>When the picture was taken, and what was subtracted or averaged (Alt+I)</source>
        <translation>Quand l&apos;image a été prise, et ce qui est soustrait ou moyenné (Alt+H)</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>&amp;Légende</translation>
    </message>
    <message>
        <source>The channels that are shown, with their newest values (Alt+L)</source>
        <translation>Les canaux affichés avec leurs dernières valeurs (Alt+L)</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message>
        <source>As on the screen</source>
        <translation>Comme à l&apos;écran</translation>
    </message>
    <message>
        <source>Light, for paper</source>
        <translation>Clair, pour le papier</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Sombre</translation>
    </message>
    <message>
        <source>The colours of the picture; the screen stays as it is (Alt+O)</source>
        <translation>Les couleurs de l&apos;image&#xa0;; l&apos;écran reste tel quel (Alt+O)</translation>
    </message>
    <message>
        <source>C&amp;olours:</source>
        <translation>C&amp;ouleurs&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>&amp;Enregistrer...</translation>
    </message>
    <message>
        <source>Write a PNG, SVG or PDF file (Enter)</source>
        <translation>Écrire un fichier PNG, SVG ou PDF (Entrée)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>Copy the picture to the clipboard (Alt+C)</source>
        <translation>Copier l&apos;image dans le presse-papiers (Alt+C)</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginForm</name>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>As on the command line, for example %1. The plugin %2 reads it.</source>
        <translation>Comme sur la ligne de commande, par exemple %1. Le greffon %2 la lit.</translation>
    </message>
</context>
<context>
    <name>Monitor::PluginSource</name>
    <message>
        <source>opening %1</source>
        <translation>ouverture de %1</translation>
    </message>
    <message>
        <source>the plugin cannot open it</source>
        <translation>le greffon ne peut pas l&apos;ouvrir</translation>
    </message>
</context>
<context>
    <name>Monitor::ProfilePage</name>
    <message>
        <source>mean X %1</source>
        <translation>moyenne X %1</translation>
    </message>
    <message>
        <source>mean Y %1</source>
        <translation>moyenne Y %1</translation>
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
        <translation>rotation %1°</translation>
    </message>
    <message>
        <source>elongation %1</source>
        <translation>élongation %1</translation>
    </message>
    <message>
        <source>integral %1</source>
        <translation>intégrale %1</translation>
    </message>
    <message>
        <source>max %1</source>
        <translation>max. %1</translation>
    </message>
</context>
<context>
    <name>Monitor::RecordAction</name>
    <message>
        <source>Stop &amp;recording</source>
        <translation>A&amp;rrêter l&apos;enregistrement</translation>
    </message>
    <message>
        <source>&amp;Record...</source>
        <translation>&amp;Enregistrer...</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Recordings (*.csv)</source>
        <translation>Enregistrements (*.csv)</translation>
    </message>
    <message>
        <source>%1. Choose another file.</source>
        <translation>%1. Choisir un autre fichier.</translation>
    </message>
</context>
<context>
    <name>Monitor::Recorder</name>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 %2, and %3</source>
        <translation>%1 %2, et %3</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 existe déjà&#xa0;; choisir un autre nom, ou permettre le remplacement (--overwrite)</translation>
    </message>
</context>
<context>
    <name>Monitor::ReportWindow</name>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 ne peut pas être ouvert&#xa0;: %2</translation>
    </message>
    <message>
        <source>Report of the crash</source>
        <translation>Rapport du plantage</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialForm</name>
    <message>
        <source>wait for ever</source>
        <translation>attendre sans fin</translation>
    </message>
    <message>
        <source>P&amp;ort:</source>
        <translation>P&amp;ort&#xa0;:</translation>
    </message>
    <message>
        <source>The ports of this machine, or the path of another one. Reading one needs the group dialout.</source>
        <translation>Les ports de cette machine, ou le chemin d&apos;un autre. La lecture demande le groupe dialout.</translation>
    </message>
    <message>
        <source>&amp;Rate:</source>
        <translation>&amp;Débit&#xa0;:</translation>
    </message>
    <message>
        <source>Bits per second, as the instrument is set; 8 data bits, no parity, 1 stop bit.</source>
        <translation>Bits par seconde, comme réglé sur l&apos;instrument&#xa0;; 8 bits de données, sans parité, 1 bit d&apos;arrêt.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Silence&#xa0;:</translation>
    </message>
    <message>
        <source>no port found; for example /dev/ttyUSB0</source>
        <translation>aucun port trouvé&#xa0;; par exemple /dev/ttyUSB0</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Port série</translation>
    </message>
</context>
<context>
    <name>Monitor::SerialSource</name>
    <message>
        <source>Check that the device is plugged in, that this user may open it (group dialout), and the baud rate.</source>
        <translation>Vérifier que l&apos;appareil est branché, que cet utilisateur peut l&apos;ouvrir (groupe dialout), et le débit.</translation>
    </message>
</context>
<context>
    <name>Monitor::Session</name>
    <message>
        <source>%1 is the source; record to another file</source>
        <translation>%1 est la source&#xa0;; enregistrer dans un autre fichier</translation>
    </message>
</context>
<context>
    <name>Monitor::SettingsDialog</name>
    <message>
        <source>As fast as &amp;possible</source>
        <translation>Aussi &amp;vite que possible</translation>
    </message>
    <message>
        <source>Play a file &amp;again and again</source>
        <translation>&amp;Jouer un fichier en boucle</translation>
    </message>
    <message>
        <source>its first reading</source>
        <translation>sa première mesure</translation>
    </message>
    <message>
        <source>its last reading</source>
        <translation>sa dernière mesure</translation>
    </message>
    <message>
        <source>as the source says</source>
        <translation>selon la source</translation>
    </message>
    <message>
        <source>record nothing by itself</source>
        <translation>ne rien enregistrer d&apos;office</translation>
    </message>
    <message>
        <source>never</source>
        <translation>jamais</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>Dép&amp;art</translation>
    </message>
    <message>
        <source>&amp;Files</source>
        <translation>&amp;Fichiers</translation>
    </message>
    <message>
        <source>R&amp;eadings</source>
        <translation>&amp;Mesures</translation>
    </message>
    <message>
        <source>Re&amp;cordings</source>
        <translation>&amp;Enregistrements</translation>
    </message>
    <message>
        <source>A simulated beam</source>
        <translation>Un faisceau simulé</translation>
    </message>
    <message>
        <source>The last source</source>
        <translation>La dernière source</translation>
    </message>
    <message>
        <source>No source</source>
        <translation>Aucune source</translation>
    </message>
    <message>
        <source>&amp;Open:</source>
        <translation>O&amp;uvrir&#xa0;:</translation>
    </message>
    <message>
        <source>What a start shows if the command line names no source.</source>
        <translation>Ce que montre un démarrage si la ligne de commande ne nomme aucune source.</translation>
    </message>
    <message>
        <source>Kept in:</source>
        <translation>Gardé dans&#xa0;:</translation>
    </message>
    <message>
        <source>--settings FILE on the command line chooses another file, and another window.</source>
        <translation>--settings FICHIER en ligne de commande choisit un autre fichier, et une autre fenêtre.</translation>
    </message>
    <message>
        <source> times as recorded</source>
        <translation> fois la vitesse d&apos;enregistrement</translation>
    </message>
    <message>
        <source>Spee&amp;d:</source>
        <translation>V&amp;itesse&#xa0;:</translation>
    </message>
    <message>
        <source>F&amp;rom:</source>
        <translation>&amp;De&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;To:</source>
        <translation>Ju&amp;squ&apos;à&#xa0;:</translation>
    </message>
    <message>
        <source>Lowest &amp;limit:</source>
        <translation>Limite &amp;basse&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Highest limit:</source>
        <translation>Limite &amp;haute&#xa0;:</translation>
    </message>
    <message>
        <source>In the unit of the readings; those outside are over range, from the next source on. Empty: as the source says.</source>
        <translation>Dans l&apos;unité des mesures&#xa0;; celles au-delà sont hors plage, dès la prochaine source. Vide&#xa0;: comme la source l&apos;indique.</translation>
    </message>
    <message>
        <source>&amp;Detector:</source>
        <translation>Dé&amp;tecteur&#xa0;:</translation>
    </message>
    <message>
        <source>Fo&amp;lder:</source>
        <translation>D&amp;ossier&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;New file after:</source>
        <translation>&amp;Nouveau fichier après&#xa0;:</translation>
    </message>
    <message>
        <source>A time or a size: 1h, 30min, 100M, 2G.</source>
        <translation>Un temps ou une taille&#xa0;: 1h, 30min, 100M, 2G.</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Parcourir...</translation>
    </message>
    <message>
        <source>Folder for recordings</source>
        <translation>Dossier des enregistrements</translation>
    </message>
    <message>
        <source>Description of a detector</source>
        <translation>Description d&apos;un détecteur</translation>
    </message>
    <message>
        <source>Detectors (*.json);;All files (*)</source>
        <translation>Détecteurs (*.json);;Tous les fichiers (*)</translation>
    </message>
    <message>
        <source>Limits need two numbers, the lower one first; or leave both fields empty.</source>
        <translation>Les limites demandent deux nombres, le plus petit d&apos;abord&#xa0;; ou laisser les deux champs vides.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither a time nor a size. Write 1h, 30min, 100M or 2G.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est ni un temps ni une taille. Écrire 1h, 30min, 100M ou 2G.</translation>
    </message>
    <message>
        <source>As the desktop</source>
        <translation>Comme le bureau</translation>
    </message>
    <message>
        <source>&amp;Language:</source>
        <translation>&amp;Langue&#xa0;:</translation>
    </message>
    <message>
        <source>Every source that is opened is recorded to a new file in this folder, named after its date and time in UTC. Empty: only File &gt; Record.</source>
        <translation>Chaque source ouverte est enregistrée dans un nouveau fichier de ce dossier, nommé d&apos;après la date et l&apos;heure en UTC. Vide&#xa0;: seulement Fichier &gt; Enregistrer.</translation>
    </message>
    <message>
        <source>Takes effect at the next start. Numbers and files are the same in every language.</source>
        <translation>Prend effet au prochain démarrage. Nombres et fichiers sont les mêmes dans toutes les langues.</translation>
    </message>
    <message>
        <source>no limit</source>
        <translation>aucune limite</translation>
    </message>
    <message>
        <source>&amp;No beam below:</source>
        <translation>Pas de faisceau &amp;sous&#xa0;:</translation>
    </message>
    <message>
        <source>A file that describes the detector, or a preset. Empty: what the source says, otherwise positions in cells.</source>
        <translation>Un fichier qui décrit le détecteur, ou un modèle. Vide&#xa0;: selon la source, sinon des positions en cellules.</translation>
    </message>
    <message>
        <source>A sum of readings, in their unit. Below it, the position displays say &quot;no beam&quot;.</source>
        <translation>Une somme de mesures, dans leur unité. En dessous, les affichages de position disent «&#xa0;pas de faisceau&#xa0;».</translation>
    </message>
    <message>
        <source>Ch&amp;oose</source>
        <translation>Chois&amp;ir</translation>
    </message>
    <message>
        <source>&amp;File...</source>
        <translation>&amp;Fichier...</translation>
    </message>
    <message>
        <source>&amp;Verdicts</source>
        <translation>Ve&amp;rdicts</translation>
    </message>
    <message>
        <source>stays text</source>
        <translation>reste du texte</translation>
    </message>
    <message>
        <source>is compressed (zstd)</source>
        <translation>est compressé (zstd)</translation>
    </message>
    <message>
        <source>becomes HDF5 (NeXus)</source>
        <translation>devient HDF5 (NeXus)</translation>
    </message>
    <message>
        <source>A co&amp;mplete file:</source>
        <translation>Un fichier &amp;complet&#xa0;:</translation>
    </message>
    <message>
        <source>What becomes of a file once nothing more is written to it. The monitor reads all of them.</source>
        <translation>Ce que devient un fichier dès que plus rien n&apos;y est écrit. Le moniteur lit toutes ces formes.</translation>
    </message>
    <message>
        <source>Times of the file, in seconds, or numbers of readings that have no times. They hold for files that are opened from now on, until the end of the program.</source>
        <translation>Temps du fichier, en secondes, ou numéros des mesures qui n&apos;ont pas de temps. Valables pour les fichiers ouverts désormais, jusqu&apos;à la fin du programme.</translation>
    </message>
    <message>
        <source>There is nothing between %1 and %2: the first time must be the earlier one.</source>
        <translation>Il n&apos;y a rien entre %1 et %2&#xa0;: le premier temps doit être le plus tôt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write it with a decimal point, like 1.5 or -1e-6.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un nombre. L&apos;écrire avec un point décimal, comme 1.5 ou -1e-6.</translation>
    </message>
</context>
<context>
    <name>Monitor::SimulatorForm</name>
    <message>
        <source>Strip detector, 32 and 32 strips</source>
        <translation>Détecteur à pistes, 32 et 32 pistes</translation>
    </message>
    <message>
        <source>Pixel detector, 12 by 12</source>
        <translation>Détecteur à pixels, 12 sur 12</translation>
    </message>
    <message>
        <source>Ionisation chamber with 4 sectors</source>
        <translation>Chambre d&apos;ionisation à 4 secteurs</translation>
    </message>
    <message>
        <source>Spots of a treatment field</source>
        <translation>Spots d&apos;un champ de traitement</translation>
    </message>
    <message>
        <source>usual</source>
        <translation>habituel</translation>
    </message>
    <message>
        <source>&amp;Instrument:</source>
        <translation>&amp;Instrument&#xa0;:</translation>
    </message>
    <message>
        <source>The beam is computed; no hardware is needed.</source>
        <translation>Le faisceau est calculé&#xa0;; aucun matériel n&apos;est nécessaire.</translation>
    </message>
    <message>
        <source>S&amp;eed:</source>
        <translation>G&amp;erme&#xa0;:</translation>
    </message>
    <message>
        <source>Another number gives another beam and other noise.</source>
        <translation>Un autre nombre donne un autre faisceau et un autre bruit.</translation>
    </message>
    <message>
        <source>Simulated beam</source>
        <translation>Faisceau simulé</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceForm</name>
    <message>
        <source>Connect again if a source that used to talk says nothing for this long, like 30s. Empty: wait for ever, as there may be no beam.</source>
        <translation>Se reconnecter si une source qui émettait se tait aussi longtemps, comme 30s. Vide&#xa0;: attendre sans fin, car il peut ne pas y avoir de faisceau.</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceNotice</name>
    <message>
        <source>%1 contains no readings.</source>
        <translation>%1 ne contient aucune mesure.</translation>
    </message>
    <message>
        <source>%1 contains no readings: %2.</source>
        <translation>%1 ne contient aucune mesure&#xa0;: %2.</translation>
    </message>
    <message>
        <source>%1: no reading has arrived yet</source>
        <translation>%1&#xa0;: aucune mesure n&apos;est encore arrivée</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceSwitch</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Opening another source ends the recording.</source>
        <translation>Ouvrir une autre source termine l&apos;enregistrement.</translation>
    </message>
    <message>
        <source>Closing the source ends the recording.</source>
        <translation>Fermer la source termine l&apos;enregistrement.</translation>
    </message>
    <message>
        <source>End the recording?</source>
        <translation>Terminer l&apos;enregistrement&#xa0;?</translation>
    </message>
    <message>
        <source>%1 What was recorded stays in %2.</source>
        <translation>%1 Ce qui a été enregistré reste dans %2.</translation>
    </message>
    <message>
        <source>&amp;End the recording</source>
        <translation>&amp;Terminer l&apos;enregistrement</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>The source is open, but it is not recorded: %1. Choose another folder in File &gt; Settings..., or record with File &gt; Record...</source>
        <translation>La source est ouverte, mais n&apos;est pas enregistrée&#xa0;: %1. Choisir un autre dossier dans Fichier &gt; Réglages..., ou enregistrer avec Fichier &gt; Enregistrer...</translation>
    </message>
    <message>
        <source>The detector stays as it was: %1. Choose another file.</source>
        <translation>Le détecteur reste tel quel&#xa0;: %1. Choisir un autre fichier.</translation>
    </message>
    <message>
        <source>Reading the table again ends the recording.</source>
        <translation>Relire le tableau termine l&apos;enregistrement.</translation>
    </message>
</context>
<context>
    <name>Monitor::SourceTest</name>
    <message>
        <source>none</source>
        <translation>aucun</translation>
    </message>
    <message>
        <source>Waiting for the first readings ...</source>
        <translation>Attente des premières mesures ...</translation>
    </message>
    <message>
        <source>The source works.</source>
        <translation>La source fonctionne.</translation>
    </message>
    <message>
        <source>First lines:</source>
        <translation>Premières lignes&#xa0;:</translation>
    </message>
    <message>
        <source>It contains no readings: %1.</source>
        <translation>Elle ne contient aucune mesure&#xa0;: %1.</translation>
    </message>
    <message>
        <source>Some lines cannot be used; the first is %1</source>
        <translation>Certaines lignes sont inutilisables&#xa0;; la première est %1</translation>
    </message>
    <message>
        <source>It contains no readings</source>
        <translation>Elle ne contient aucune mesure</translation>
    </message>
    <message>
        <source>Something arrived, but nothing of it could be read within %1 s. The source must send lines of numbers; see Help &gt; Line protocol.</source>
        <translation>Quelque chose est arrivé, mais rien n&apos;a pu être lu en %1 s. La source doit envoyer des lignes de nombres&#xa0;; voir Aide &gt; Protocole de lignes.</translation>
    </message>
    <message>
        <source>Nothing arrived within %1 s. %2</source>
        <translation>Rien n&apos;est arrivé en %1 s. %2</translation>
    </message>
</context>
<context>
    <name>Monitor::SpanControl</name>
    <message>
        <source>Time &amp;span:</source>
        <translation>&amp;Durée&#xa0;:</translation>
    </message>
    <message>
        <source>Time that the strip chart shows (Ctrl+T): choose one, or type 90 s, 2 h, 1.5 min or all. Readings older than the newest 100000 are shown as the range of blocks, for a week; while they are averaged, they are not shown.</source>
        <translation>Durée montrée par le défilement (Ctrl+T)&#xa0;: à choisir, ou à saisir, comme 90 s, 2 h, 1.5 min ou tout. Les mesures plus anciennes que les 100000 dernières sont montrées comme étendue de blocs, pendant une semaine&#xa0;; avec une moyenne, elles ne le sont pas.</translation>
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
        <translation>Couche %1 de %2</translation>
    </message>
</context>
<context>
    <name>Monitor::StaleMarks</name>
    <message>
        <source>old: %1</source>
        <translation>ancien&#xa0;: %1</translation>
    </message>
    <message>
        <source>This value is old: no reading has arrived since.</source>
        <translation>Cette valeur est ancienne&#xa0;: aucune mesure n&apos;est arrivée depuis.</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputForm</name>
    <message>
        <source>Standard input</source>
        <translation>Entrée standard</translation>
    </message>
    <message>
        <source>Reads the lines, or grey images (PGM), that another program writes into this one:

    instrument | corvale-monitor -

What was read is gone, so this source cannot be tested and cannot be opened twice.</source>
        <translation>Lit les lignes, ou les images grises (PGM), qu&apos;un autre programme écrit dans celui-ci&#xa0;:

    instrument | corvale-monitor -

Ce qui est lu est consommé&#xa0;: cette source ne peut être ni testée ni ouverte deux fois.</translation>
    </message>
</context>
<context>
    <name>Monitor::StandardInputSource</name>
    <message>
        <source>reading standard input failed: %1</source>
        <translation>la lecture de l&apos;entrée standard a échoué&#xa0;: %1</translation>
    </message>
    <message>
        <source>standard input: what follows image %1 cannot be read</source>
        <translation>entrée standard&#xa0;: ce qui suit l&apos;image %1 est illisible</translation>
    </message>
</context>
<context>
    <name>Monitor::SweepNotice</name>
    <message>
        <source>The first sweep is shown when it is complete (%1 of %2)</source>
        <translation>Le premier balayage s&apos;affiche quand il est complet (%1 sur %2)</translation>
    </message>
</context>
<context>
    <name>Monitor::SystemError</name>
    <message>
        <source>Connection refused</source>
        <translation>connexion refusée</translation>
    </message>
    <message>
        <source>Connection timed out</source>
        <translation>délai de connexion dépassé</translation>
    </message>
    <message>
        <source>Host not found</source>
        <translation>hôte introuvable</translation>
    </message>
    <message>
        <source>Network unreachable</source>
        <translation>réseau inaccessible</translation>
    </message>
    <message>
        <source>Socket operation timed out</source>
        <translation>délai d&apos;attente de la connexion dépassé</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>erreur inconnue</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>fichier ou dossier introuvable</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>plus de place sur le disque</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>accès refusé</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>trop de fichiers ouverts</translation>
    </message>
    <message>
        <source>Host unreachable</source>
        <translation>hôte inaccessible</translation>
    </message>
    <message>
        <source>Network error</source>
        <translation>erreur de réseau</translation>
    </message>
    <message>
        <source>The address is not available</source>
        <translation>l&apos;adresse n&apos;est pas disponible</translation>
    </message>
    <message>
        <source>The address is protected</source>
        <translation>l&apos;adresse est protégée</translation>
    </message>
    <message>
        <source>The bound address is already in use</source>
        <translation>l&apos;adresse est déjà utilisée</translation>
    </message>
    <message>
        <source>The remote host closed the connection</source>
        <translation>l&apos;autre côté a fermé la connexion</translation>
    </message>
    <message>
        <source>Device or resource busy</source>
        <translation>le périphérique est occupé</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>quota de disque dépassé</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>fichier trop grand</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>erreur d&apos;entrée/sortie</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>c&apos;est un dossier</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>périphérique inexistant</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>ce n&apos;est pas un dossier</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>opération non permise</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>système de fichiers en lecture seule</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeBar</name>
    <message>
        <source>Tape &amp;deck</source>
        <translation>&amp;Lecteur</translation>
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
        <translation>au plus vite</translation>
    </message>
    <message>
        <source>Tape</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>One reading back (comma)</source>
        <translation>Une mesure en arrière (virgule)</translation>
    </message>
    <message>
        <source>Play or pause (Enter)</source>
        <translation>Lire ou mettre en pause (Entrée)</translation>
    </message>
    <message>
        <source>One reading on (period)</source>
        <translation>Une mesure en avant (point)</translation>
    </message>
    <message>
        <source>Speed of the tape</source>
        <translation>Vitesse de lecture</translation>
    </message>
    <message>
        <source>Repeat from here ([)</source>
        <translation>Répéter à partir d&apos;ici ([)</translation>
    </message>
    <message>
        <source>Repeat up to here (])</source>
        <translation>Répéter jusqu&apos;ici (])</translation>
    </message>
    <message>
        <source>Repeat nothing (Backspace)</source>
        <translation>Ne rien répéter (Retour arrière)</translation>
    </message>
    <message>
        <source>Pause the tape</source>
        <translation>Mettre en pause</translation>
    </message>
    <message>
        <source>Play the tape</source>
        <translation>Lire</translation>
    </message>
    <message>
        <source>%1/%2: </source>
        <translation>%1/%2&#xa0;: </translation>
    </message>
    <message>
        <source>How many times as fast as the recording was taken; of readings without times, 1 x shows %1 a second</source>
        <translation>Combien de fois plus vite que l&apos;enregistrement&#xa0;; pour des mesures sans temps, 1 x en montre %1 par seconde</translation>
    </message>
    <message>
        <source>The time of the reading that is shown, as the recording has it; the time that passes in a gap; the number of the reading where the recording has no times</source>
        <translation>Le temps de la mesure affichée, tel que dans l&apos;enregistrement&#xa0;; dans un trou, le temps qui passe&#xa0;; le numéro de la mesure si l&apos;enregistrement n&apos;a pas de temps</translation>
    </message>
    <message>
        <source>Click or drag to go there, drag with Shift to repeat a stretch. Keys: left and right (with Shift ten times as far), Home, End, Page Up and Page Down to events and to where gaps begin and end.</source>
        <translation>Cliquer ou glisser pour s&apos;y rendre, glisser avec Maj pour répéter un passage. Touches&#xa0;: gauche et droite (dix fois plus loin avec Maj), Début, Fin, Page haut et Page bas vers les événements et vers le début et la fin des trous.</translation>
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
        <translation>spot %1 sur %2</translation>
    </message>
    <message>
        <source>reading %1 of %2</source>
        <translation>mesure %1 sur %2</translation>
    </message>
    <message>
        <source>gap, %1</source>
        <translation>trou, %1</translation>
    </message>
</context>
<context>
    <name>Monitor::TapeTimeline</name>
    <message>
        <source>Time line of the recording</source>
        <translation>Ligne de temps de l&apos;enregistrement</translation>
    </message>
    <message>
        <source>The recording is being looked through: %1 %</source>
        <translation>L&apos;enregistrement est parcouru&#xa0;: %1 %</translation>
    </message>
    <message>
        <source>, part %1 of %2</source>
        <translation>, partie %1 de %2</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>no readings for %1</source>
        <translation>aucune mesure pendant %1</translation>
    </message>
    <message>
        <source>The recording can be played, but not searched: %1</source>
        <translation>L&apos;enregistrement peut être joué, mais pas parcouru&#xa0;: %1</translation>
    </message>
    <message>
        <source>the outline is the sum of %1</source>
        <translation>le contour est la somme de %1</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientForm</name>
    <message>
        <source>the instrument talks by itself</source>
        <translation>l&apos;instrument émet de lui-même</translation>
    </message>
    <message>
        <source>wait for ever</source>
        <translation>attendre sans fin</translation>
    </message>
    <message>
        <source>&amp;Host:</source>
        <translation>&amp;Hôte&#xa0;:</translation>
    </message>
    <message>
        <source>The name or the address of the instrument.</source>
        <translation>Le nom ou l&apos;adresse de l&apos;instrument.</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>P&amp;ort&#xa0;:</translation>
    </message>
    <message>
        <source>The number of the TCP port; the instrument&apos;s manual has it.</source>
        <translation>Le numéro du port TCP&#xa0;; il est dans le manuel de l&apos;instrument.</translation>
    </message>
    <message>
        <source>What to send for each reading, like READ?, if the instrument answers only when asked.</source>
        <translation>Ce qu&apos;il faut envoyer pour chaque mesure, comme READ?, si l&apos;instrument ne répond qu&apos;aux questions.</translation>
    </message>
    <message>
        <source>E&amp;very:</source>
        <translation>Toutes &amp;les&#xa0;:</translation>
    </message>
    <message>
        <source>How often to ask: 100ms, 1s. Unused without a question.</source>
        <translation>À quelle fréquence demander&#xa0;: 100ms, 1s. Sans effet sans question.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Silence&#xa0;:</translation>
    </message>
    <message>
        <source>Network instrument</source>
        <translation>Instrument en réseau</translation>
    </message>
    <message>
        <source>&amp;Ask:</source>
        <translation>&amp;Question&#xa0;:</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpClientSource</name>
    <message>
        <source>Check that the instrument is switched on and reachable, that the port is right, and whether the instrument must be asked (?ask=TEXT).</source>
        <translation>Vérifier que l&apos;instrument est allumé et joignable, que le port est juste, et s&apos;il faut l&apos;interroger (?ask=TEXTE).</translation>
    </message>
    <message>
        <source>its name was not resolved in time</source>
        <translation>son nom n&apos;a pas été résolu à temps</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerForm</name>
    <message>
        <source>wait for ever</source>
        <translation>attendre sans fin</translation>
    </message>
    <message>
        <source>&amp;Address:</source>
        <translation>&amp;Adresse&#xa0;:</translation>
    </message>
    <message>
        <source>127.0.0.1 lets only programs of this machine connect, 0.0.0.0 every machine of the network.</source>
        <translation>127.0.0.1 n&apos;accepte que les programmes de cette machine, 0.0.0.0 toutes les machines du réseau.</translation>
    </message>
    <message>
        <source>&amp;Port:</source>
        <translation>P&amp;ort&#xa0;:</translation>
    </message>
    <message>
        <source>The TCP port that this program opens and the other one connects to.</source>
        <translation>Le port TCP que ce programme ouvre et auquel l&apos;autre se connecte.</translation>
    </message>
    <message>
        <source>S&amp;ilence:</source>
        <translation>&amp;Silence&#xa0;:</translation>
    </message>
    <message>
        <source>Wait for a program</source>
        <translation>Attendre un programme</translation>
    </message>
</context>
<context>
    <name>Monitor::TcpServerSource</name>
    <message>
        <source>Check that no other program listens on this port, that the address belongs to this machine, and that the sender uses the same port.</source>
        <translation>Vérifier qu&apos;aucun autre programme n&apos;écoute sur ce port, que l&apos;adresse est à cette machine, et que l&apos;émetteur utilise le même port.</translation>
    </message>
    <message>
        <source>the connection broke (%1)</source>
        <translation>la connexion s&apos;est rompue (%1)</translation>
    </message>
</context>
<context>
    <name>Monitor::Text</name>
    <message>
        <source>its columns are separated by semicolons</source>
        <translation>ses colonnes sont séparées par des points-virgules</translation>
    </message>
    <message>
        <source>its columns are separated by tabs</source>
        <translation>ses colonnes sont séparées par des tabulations</translation>
    </message>
    <message>
        <source>its columns are separated by bars</source>
        <translation>ses colonnes sont séparées par des barres verticales</translation>
    </message>
    <message>
        <source>its values are in quotes</source>
        <translation>ses valeurs sont entre guillemets</translation>
    </message>
    <message>
        <source>its numbers have a decimal comma</source>
        <translation>ses nombres ont une virgule décimale</translation>
    </message>
    <message>
        <source>its times are dates</source>
        <translation>ses temps sont des dates</translation>
    </message>
    <message>
        <source>its times are dates without a time zone (local time is assumed; clock=utc otherwise)</source>
        <translation>ses temps sont des dates sans fuseau horaire (heure locale supposée&#xa0;; sinon clock=utc)</translation>
    </message>
    <message>
        <source> and </source>
        <translation> et </translation>
    </message>
    <message>
        <source>no column holds the time, and %1 is not a time</source>
        <translation>aucune colonne ne contient le temps, et %1 n&apos;est pas un temps</translation>
    </message>
    <message>
        <source>no column holds the time</source>
        <translation>aucune colonne ne contient le temps</translation>
    </message>
    <message>
        <source>, and </source>
        <translation>, et </translation>
    </message>
    <message>
        <source>%1. The option --import &quot;%2&quot; reads it</source>
        <translation>%1. L&apos;option --import &quot;%2&quot; la lit</translation>
    </message>
    <message>
        <source>%1. If its rows are 1 ms apart, the option --import &quot;%2&quot; reads it</source>
        <translation>%1. Si ses lignes sont espacées de 1 ms, l&apos;option --import &quot;%2&quot; la lit</translation>
    </message>
    <message>
        <source>&quot;%1&quot; makes no sense; there are delimiter=comma, semicolon, tab, blank or bar, decimal=comma, header=yes or no, time=COLUMN or none, interval=1ms, clock=utc or local, format=dd.MM.yyyy HH:mm:ss, skip=LINES and comment=SIGN, separated by commas</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;a pas de sens&#xa0;; il y a delimiter=comma, semicolon, tab, blank ou bar, decimal=comma, header=yes ou no, time=COLONNE ou none, interval=1ms, clock=utc ou local, format=dd.MM.yyyy HH:mm:ss, skip=LIGNES et comment=SIGNE, séparés par des virgules</translation>
    </message>
    <message>
        <source>with decimal=comma the delimiter cannot be a comma</source>
        <translation>avec decimal=comma, le séparateur ne peut pas être une virgule</translation>
    </message>
    <message>
        <source>clock says how a time column is read, and there is none</source>
        <translation>clock dit comment lire une colonne de temps, et il n&apos;y en a pas</translation>
    </message>
    <message>
        <source>%1 is not a list of spots; it needs the columns x_mm, y_mm and mu</source>
        <translation>%1 n&apos;est pas une liste de spots&#xa0;; il faut les colonnes x_mm, y_mm et mu</translation>
    </message>
    <message>
        <source>four numbers are needed, empty for no limit</source>
        <translation>quatre nombres sont nécessaires, vide pour aucune limite</translation>
    </message>
    <message>
        <source>the limits must rise from low alarm to high alarm</source>
        <translation>les limites doivent croître de l&apos;alarme basse à l&apos;alarme haute</translation>
    </message>
    <message>
        <source>no spot lies where one is planned</source>
        <translation>aucun spot n&apos;est là où un spot est prévu</translation>
    </message>
    <message>
        <source> (row %1, spot %2)</source>
        <translation> (ligne %1, spot %2)</translation>
    </message>
    <message>
        <source> (row %1)</source>
        <translation> (ligne %1)</translation>
    </message>
    <message>
        <source>; no tolerance is set</source>
        <translation>&#xa0;; aucune tolérance fixée</translation>
    </message>
    <message>
        <source>; %1 outside %2 x %3 mm</source>
        <translation>&#xa0;; %1 hors de %2 x %3 mm</translation>
    </message>
    <message>
        <source>%1 missing (%2 %7), %3 extra (%4 %7); total dose %5 %7 of %6 %7</source>
        <translation>%1 manquants (%2 %7), %3 en trop (%4 %7)&#xa0;; dose totale %5 %7 sur %6 %7</translation>
    </message>
    <message>
        <source>; largest difference of a spot %1 %2</source>
        <translation>&#xa0;; plus grand écart d&apos;un spot %1 %2</translation>
    </message>
    <message>
        <source>was removed or renamed</source>
        <translation>a été supprimé ou renommé</translation>
    </message>
    <message>
        <source>was replaced by another file</source>
        <translation>a été remplacé par un autre fichier</translation>
    </message>
    <message>
        <source>was changed by another program</source>
        <translation>a été modifié par un autre programme</translation>
    </message>
    <message>
        <source>over a year</source>
        <translation>plus d&apos;un an</translation>
    </message>
    <message>
        <source>%1 d</source>
        <translation>%1 j</translation>
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
        <translation>moins d&apos;une minute</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source; there are sim:, file:, -, tcp://, tcp-listen:// and serial:</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un type de source connu&#xa0;; il y a sim:, file:, -, tcp://, tcp-listen:// et serial:</translation>
    </message>
    <message>
        <source>sim:%1: only seed=NUMBER may follow the question mark</source>
        <translation>sim:%1&#xa0;: seul seed=NOMBRE peut suivre le point d&apos;interrogation</translation>
    </message>
    <message>
        <source>there is no simulator &quot;%1&quot;; there are sim:ic4, sim:strips, sim:pixels and sim:spots</source>
        <translation>il n&apos;y a pas de simulateur «&#xa0;%1&#xa0;»&#xa0;; il y a sim:ic4, sim:strips, sim:pixels et sim:spots</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp://HOST:PORT</source>
        <translation>«&#xa0;%1&#xa0;» devrait être tcp://HÔTE:PORT</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?ask=TEXT&amp;every=100ms&amp;silence=30s may follow the port</source>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: seul&#xa0;?ask=TEXTE&amp;every=100ms&amp;silence=30s peut suivre le port</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tcp-listen://127.0.0.1:PORT, with the address of one of this machine&apos;s interfaces (0.0.0.0 for all of them); only ?silence=30s may follow the port</source>
        <translation>«&#xa0;%1&#xa0;» devrait être tcp-listen://127.0.0.1:PORT, avec l&apos;adresse d&apos;une interface de cette machine (0.0.0.0 pour toutes)&#xa0;; seul&#xa0;?silence=30s peut suivre le port</translation>
    </message>
    <message>
        <source>&quot;serial:%1&quot; should be serial:DEVICE or serial:DEVICE?baud=NUMBER&amp;silence=30s</source>
        <translation>«&#xa0;serial:%1&#xa0;» devrait être serial:APPAREIL ou serial:APPAREIL?baud=NOMBRE&amp;silence=30s</translation>
    </message>
    <message>
        <source>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</source>
        <translation>PNG (*.png);;SVG (*.svg);;PDF (*.pdf)</translation>
    </message>
    <message>
        <source>%1: the name of a picture must end in .png, .svg or .pdf</source>
        <translation>%1&#xa0;: le nom d&apos;une image doit se terminer par .png, .svg ou .pdf</translation>
    </message>
    <message>
        <source>it is not a regular file</source>
        <translation>ce n&apos;est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2. Check the path and whether this user may read it</source>
        <translation>%1 ne peut pas être lu&#xa0;: %2. Vérifier le chemin et le droit de lecture</translation>
    </message>
    <message>
        <source>%1 cannot be used: %2. Correct this line, or remove it</source>
        <translation>%1 est inutilisable&#xa0;: %2. Corriger cette ligne, ou la supprimer</translation>
    </message>
    <message>
        <source>%1 has more than %2 spots. Compare the fields one by one</source>
        <translation>%1 a plus de %2 spots. Comparer les champs un par un</translation>
    </message>
    <message>
        <source>another recorder is writing to it, or it is being compressed</source>
        <translation>un autre enregistreur y écrit, ou il est en cours de compression</translation>
    </message>
    <message>
        <source>it has too many parts, or descriptions that are too long</source>
        <translation>il a trop de parties, ou des descriptions trop longues</translation>
    </message>
    <message>
        <source>it contains no readings</source>
        <translation>il ne contient aucune mesure</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2. Choose another file.</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2. Choisir un autre fichier.</translation>
    </message>
    <message>
        <source>%1x average</source>
        <translation>moyenne sur %1</translation>
    </message>
    <message>
        <source>it is a link of another user</source>
        <translation>c&apos;est un lien d&apos;un autre utilisateur</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm</source>
        <translation>32 + 32 pistes de 2 mm</translation>
    </message>
    <message>
        <source>32 + 32 strips of 2 mm, x in channels 1 to 32 and y in 65 to 96 of 128</source>
        <translation>32 + 32 pistes de 2 mm, x dans les canaux 1 à 32 et y dans 65 à 96 sur 128</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm in 12 rows of 12, without the corners</source>
        <translation>120 pixels de 3.8 mm en 12 lignes de 12, sans les coins</translation>
    </message>
    <message>
        <source>120 pixels of 3.8 mm, as they are wired to 128 channels</source>
        <translation>120 pixels de 3.8 mm, comme câblés sur 128 canaux</translation>
    </message>
    <message>
        <source>there are %1</source>
        <translation>il y a %1</translation>
    </message>
    <message>
        <source>No signal.</source>
        <translation>Pas de signal.</translation>
    </message>
    <message>
        <source>it has no channels</source>
        <translation>elle n&apos;a pas de canaux</translation>
    </message>
    <message>
        <source>frames of %1 x %2 values cannot be shown: a matrix has at most 256 columns and 256 rows, and planes of strips have at most 65536 values together</source>
        <translation>des images de %1 x %2 valeurs ne peuvent pas être montrées&#xa0;: une matrice a au plus 256 colonnes et 256 lignes, et les plans de pistes ont ensemble au plus 65536 valeurs</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a known kind of source: %2</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un type de source connu&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 is not a plugin</source>
        <translation>%1 n&apos;est pas un greffon</translation>
    </message>
    <message>
        <source>%1 is a plugin, but not for sources of this program</source>
        <translation>%1 est un greffon, mais pas pour les sources de ce programme</translation>
    </message>
    <message>
        <source>%1 was built for version %2 of the interface, and this program has version %3</source>
        <translation>%1 a été construit pour la version %2 de l&apos;interface, et ce programme a la version %3</translation>
    </message>
    <message>
        <source>%1 does not say which addresses it reads</source>
        <translation>%1 ne dit pas quelles adresses il lit</translation>
    </message>
    <message>
        <source>there is no plugin for %1: install the package %2</source>
        <translation>il n&apos;y a pas de greffon pour %1&#xa0;: installez le paquet %2</translation>
    </message>
    <message>
        <source>the plugin for %1 cannot be loaded: %2</source>
        <translation>le greffon pour %1 ne peut pas être chargé&#xa0;: %2</translation>
    </message>
    <message>
        <source>there is no file of that name, and no plugin for %1 in %2</source>
        <translation>il n&apos;y a pas de fichier de ce nom, ni de greffon pour %1 dans %2</translation>
    </message>
    <message>
        <source>LOST</source>
        <translation>PERDUE</translation>
    </message>
    <message>
        <source>CONNECTING</source>
        <translation>CONNEXION</translation>
    </message>
    <message>
        <source>END</source>
        <translation>FIN</translation>
    </message>
    <message>
        <source>STALE</source>
        <translation>PÉRIMÉ</translation>
    </message>
    <message>
        <source>no reading has come for three of the usual intervals; check the beam and the instrument</source>
        <translation>aucune mesure depuis trois intervalles habituels&#xa0;; vérifier le faisceau et l&apos;instrument</translation>
    </message>
    <message>
        <source>RECORDING FAILS</source>
        <translation>ENREGISTREMENT EN ÉCHEC</translation>
    </message>
    <message>
        <source>CLOCK %1 s</source>
        <translation>HORLOGE %1 s</translation>
    </message>
    <message>
        <source>the clock of the source differs from this computer&apos;s by this much, so its chart shows another time than the others</source>
        <translation>l&apos;horloge de la source s&apos;écarte d&apos;autant de celle de cet ordinateur&#xa0;; son diagramme montre donc un autre temps que les autres</translation>
    </message>
    <message>
        <source>SIMULATED</source>
        <translation>SIMULÉ</translation>
    </message>
    <message>
        <source>no instrument is read</source>
        <translation>aucun instrument n&apos;est lu</translation>
    </message>
    <message>
        <source>HDF5 gives no reason</source>
        <translation>HDF5 ne donne pas de raison</translation>
    </message>
    <message>
        <source>they are not numbers</source>
        <translation>ce ne sont pas des nombres</translation>
    </message>
    <message>
        <source>they are not a list</source>
        <translation>ce n&apos;est pas une liste</translation>
    </message>
    <message>
        <source>they lie in another file</source>
        <translation>elles se trouvent dans un autre fichier</translation>
    </message>
    <message>
        <source>their chunks are larger than %1 MB</source>
        <translation>leurs blocs dépassent %1 Mo</translation>
    </message>
    <message>
        <source>they claim to be more than the file can hold</source>
        <translation>elles prétendent être plus que le fichier ne peut contenir</translation>
    </message>
    <message>
        <source>its data %1 cannot be read: %2</source>
        <translation>ses données %1 ne peuvent pas être lues&#xa0;: %2</translation>
    </message>
    <message>
        <source>they are missing</source>
        <translation>elles manquent</translation>
    </message>
    <message>
        <source>they do not have the form that the file describes</source>
        <translation>elles n&apos;ont pas la forme que le fichier décrit</translation>
    </message>
    <message>
        <source>the description of its readings is damaged</source>
        <translation>la description de ses mesures est endommagée</translation>
    </message>
    <message>
        <source>this program was built without HDF5; build it with the HDF5 library (Debian has it in libhdf5-dev) and the option CORVALE_QT_HDF5</source>
        <translation>ce programme a été construit sans HDF5&#xa0;; construisez-le avec la bibliothèque HDF5 (libhdf5-dev sous Debian) et l&apos;option CORVALE_QT_HDF5</translation>
    </message>
    <message>
        <source>it does not say which of its data is the signal</source>
        <translation>il ne dit pas lesquelles de ses données sont le signal</translation>
    </message>
    <message>
        <source>its signal %1 is missing</source>
        <translation>son signal %1 manque</translation>
    </message>
    <message>
        <source>its signal has %1 dimensions; 1, 2 and 3 can be shown</source>
        <translation>son signal a %1 dimensions&#xa0;; 1, 2 et 3 peuvent être affichées</translation>
    </message>
    <message>
        <source>its axis %1 is missing</source>
        <translation>son axe %1 manque</translation>
    </message>
    <message>
        <source>its signal %1 has %2 values for each time; up to %3 can be shown</source>
        <translation>son signal %1 a %2 valeurs par instant&#xa0;; %3 au plus peuvent être affichées</translation>
    </message>
    <message>
        <source>its signal %1 has images of %2 x %3; up to %4 x %4 can be shown</source>
        <translation>son signal %1 a des images de %2 x %3&#xa0;; %4 x %4 au plus peuvent être affichées</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 ne peut pas être écrit&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 exists already; choose another name, or allow overwriting (--overwrite)</source>
        <translation>%1 existe déjà&#xa0;; choisissez un autre nom ou autorisez le remplacement (--overwrite)</translation>
    </message>
    <message>
        <source>this user may not read it</source>
        <translation>cet utilisateur n&apos;a pas le droit de le lire</translation>
    </message>
    <message>
        <source>it is not a whole HDF5 file: it is damaged, cut off or still being written (%1)</source>
        <translation>ce n&apos;est pas un fichier HDF5 entier&#xa0;: il est endommagé, tronqué ou encore en cours d&apos;écriture (%1)</translation>
    </message>
    <message>
        <source>it changes while it is read</source>
        <translation>il change pendant sa lecture</translation>
    </message>
    <message>
        <source>readings %1 to %2 of %3 are damaged (%4)</source>
        <translation>les mesures %1 à %2 de %3 sont endommagées (%4)</translation>
    </message>
    <message>
        <source>event %1 of %2 is damaged</source>
        <translation>l&apos;événement %1 de %2 est endommagé</translation>
    </message>
    <message>
        <source>it is not open</source>
        <translation>il n&apos;est pas ouvert</translation>
    </message>
    <message>
        <source>what was written is not what was recorded</source>
        <translation>ce qui a été écrit n&apos;est pas ce qui a été enregistré</translation>
    </message>
    <message>
        <source>it has no NXdata</source>
        <translation>il n&apos;a pas de NXdata</translation>
    </message>
    <message>
        <source>it has no NXentry and no NXdata, which tell what its numbers are</source>
        <translation>il n&apos;a ni NXentry ni NXdata, qui disent ce que sont ses nombres</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1&#xa0;: %2</translation>
    </message>
    <message>
        <source>the description of the stream is too long</source>
        <translation>la description du flux est trop longue</translation>
    </message>
    <message>
        <source>it has more than %1 acquisitions; convert its parts one by one</source>
        <translation>il a plus de %1 acquisitions&#xa0;; convertissez ses parties une à une</translation>
    </message>
    <message>
        <source>another program writes to %1</source>
        <translation>un autre programme écrit dans %1</translation>
    </message>
    <message>
        <source>NOT RECORDED</source>
        <translation>NON ENREGISTRÉE</translation>
    </message>
    <message>
        <source>the file of this source could not be begun; the log says why. Stop the recording and begin another one</source>
        <translation>le fichier de cette source n&apos;a pas pu être créé&#xa0;; le journal dit pourquoi. Arrêtez l&apos;enregistrement et commencez-en un autre</translation>
    </message>
    <message>
        <source>the texts in it are damaged</source>
        <translation>les textes qu&apos;il contient sont endommagés</translation>
    </message>
    <message>
        <source>it should begin with the name of the control system, like tango:beam/monitor/1</source>
        <translation>elle doit commencer par ce qui publie, par exemple tango:beam/monitor/1</translation>
    </message>
    <message>
        <source>%1 was built for another version of the interface</source>
        <translation>%1 a été construit pour une autre version de l&apos;interface</translation>
    </message>
    <message>
        <source>the plugin for %1 reads sources, and publishes nothing</source>
        <translation>le greffon pour %1 lit des sources et ne publie rien</translation>
    </message>
    <message>
        <source>%1 is shown alone: its images have no times. Open it with File &gt; Open..., or in a window with another --settings FILE</source>
        <translation>%1 s&apos;affiche seul&#xa0;: ses images n&apos;ont pas de temps. Ouvrez-le avec Fichier &gt; Ouvrir..., ou dans une fenêtre avec un autre --settings FICHIER</translation>
    </message>
    <message>
        <source>%1 is a recording, and %2 is an instrument: they are not shown together, since their readings were taken at different times. Open one of them in a window with another --settings FILE</source>
        <translation>%1 est un enregistrement et %2 un instrument&#xa0;: ils ne s&apos;affichent pas ensemble, car leurs mesures n&apos;ont pas été prises au même moment. Ouvrez l&apos;un des deux dans une fenêtre avec un autre --settings FICHIER</translation>
    </message>
    <message>
        <source>a text in it is larger than 64 MB</source>
        <translation>un texte qu&apos;il contient dépasse 64 Mo</translation>
    </message>
    <message>
        <source>the system cannot start another thread</source>
        <translation>le système ne peut pas démarrer un thread de plus</translation>
    </message>
    <message numerus="yes">
        <source>The source works. It sent only %n reading(s) within %1 s.</source>
        <translation>
            <numerusform>La source fonctionne. Elle n&apos;a envoyé que %n mesure en %1 s.</numerusform>
            <numerusform>La source fonctionne. Elle n&apos;a envoyé que %n mesures en %1 s.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Read as %n channel(s), layout %1:</source>
        <translation>
            <numerusform>Lu comme %n canal, disposition %1&#xa0;:</numerusform>
            <numerusform>Lu comme %n canaux, disposition %1&#xa0;:</numerusform>
        </translation>
    </message>
    <message>
        <source>its signal %1 has no time axis</source>
        <translation>son signal %1 n&apos;a pas d&apos;axe du temps</translation>
    </message>
    <message>
        <source>its axis %1 is not as long as its signal %2</source>
        <translation>son axe %1 n&apos;a pas la longueur du signal %2</translation>
    </message>
    <message>
        <source>the axis %1 of its signal %2 is in %3, which is not a unit of time</source>
        <translation>l&apos;axe %1 de son signal %2 est en %3, qui n&apos;est pas une unité de temps</translation>
    </message>
    <message numerus="yes">
        <source>%1 is being compressed, and %n more file(s) is/are waiting. Nothing is lost if you do not wait.</source>
        <translation>
            <numerusform>%1 est en cours de compression, et %n autre fichier attend. Rien n&apos;est perdu si vous n&apos;attendez pas.</numerusform>
            <numerusform>%1 est en cours de compression, et %n autres fichiers attendent. Rien n&apos;est perdu si vous n&apos;attendez pas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n spot(s): mean X %1, Y %2 mm; sigma X %3, Y %4 mm; worst %5 mm</source>
        <translation>
            <numerusform>%n spot&#xa0;: moyenne X %1, Y %2 mm&#xa0;; sigma X %3, Y %4 mm&#xa0;; pire %5 mm</numerusform>
            <numerusform>%n spots&#xa0;: moyenne X %1, Y %2 mm&#xa0;; sigma X %3, Y %4 mm&#xa0;; pire %5 mm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>; %n spot(s) without a place, a dose or a width is/are not compared</source>
        <translation>
            <numerusform>&#xa0;; %n spot sans position, dose ou largeur n&apos;est pas comparé</numerusform>
            <numerusform>&#xa0;; %n spots sans position, dose ou largeur ne sont pas comparés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n reading(s) lies in the times that were asked for</source>
        <translation>
            <numerusform>sa seule mesure (%n) n&apos;est pas dans les temps demandés</numerusform>
            <numerusform>aucune de ses %n mesures n&apos;est dans les temps demandés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>none of its %n line(s) can be read; the first was %1; a row must be t,v1,v2,... with decimal points, or --import must say how it is written</source>
        <translation>
            <numerusform>sa seule ligne (%n) n&apos;est pas lisible&#xa0;: %1&#xa0;; une ligne doit être t,v1,v2,... avec des points décimaux, ou --import doit dire comment elle est écrite</numerusform>
            <numerusform>aucune de ses %n lignes n&apos;est lisible&#xa0;; la première était %1&#xa0;; une ligne doit être t,v1,v2,... avec des points décimaux, ou --import doit dire comment elle est écrite</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) was/were cleared from the displays. For a minute it/they can be brought back (%1).</source>
        <translation>
            <numerusform>%n mesure a été effacée des affichages. Pendant une minute, elle peut être rétablie (%1).</numerusform>
            <numerusform>%n mesures ont été effacées des affichages. Pendant une minute, elles peuvent être rétablies (%1).</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n column(s) beyond the first %1 is/are left out; a stream of frames may have more</source>
        <translation>
            <numerusform>%n colonne au-delà des %1 premières n&apos;est pas prise en compte&#xa0;; un flux d&apos;images peut en avoir plus</numerusform>
            <numerusform>%n colonnes au-delà des %1 premières ne sont pas prises en compte&#xa0;; un flux d&apos;images peut en avoir plus</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Subtracts the mean of the last %n reading(s) of each channel from what is shown.</source>
        <translation>
            <numerusform>Soustrait la dernière mesure (%n) de chaque canal de ce qui est affiché.</numerusform>
            <numerusform>Soustrait la moyenne des %n dernières mesures de chaque canal de ce qui est affiché.</numerusform>
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
        <source>%n bad line(s)</source>
        <translation>
            <numerusform>%n rejet</numerusform>
            <numerusform>%n rejets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n gap(s)</source>
        <translation>
            <numerusform>%n trou</numerusform>
            <numerusform>%n trous</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>PAUSED, %n reading(s) wait(s)</source>
        <translation>
            <numerusform>EN PAUSE, %n mesure en attente</numerusform>
            <numerusform>EN PAUSE, %n mesures en attente</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: none of %n line(s) could be read; the first was %2. A line must be t,v1,v2,... with decimal points.</source>
        <translation>
            <numerusform>%1&#xa0;: %n ligne n&apos;a pas pu être lue&#xa0;: %2. Une ligne doit être t,v1,v2,... avec des points décimaux.</numerusform>
            <numerusform>%1&#xa0;: aucune des %n lignes n&apos;a pu être lue&#xa0;; la première était %2. Une ligne doit être t,v1,v2,... avec des points décimaux.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>All %n layer(s)</source>
        <translation>
            <numerusform>%n couche</numerusform>
            <numerusform>Toutes les %n couches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cell(s) is/are not wired</source>
        <translation>
            <numerusform>%n cellule n&apos;est pas câblée</numerusform>
            <numerusform>%n cellules ne sont pas câblées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n reading(s) belong(s) to no cell</source>
        <translation>
            <numerusform>%n mesure n&apos;appartient à aucune cellule</numerusform>
            <numerusform>%n mesures n&apos;appartiennent à aucune cellule</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2 left out</source>
        <translation>%1&#xa0;: %2 non pris en compte</translation>
    </message>
    <message>
        <source>readings with charge where the detector has no cell: %1; the worst, at %2 s: %3</source>
        <translation>mesures avec de la charge là où le détecteur n&apos;a pas de cellule&#xa0;: %1&#xa0;; la pire, à %2 s&#xa0;: %3</translation>
    </message>
    <message>
        <source>longer than 2 MiB</source>
        <translation>plus longue que 2 Mio</translation>
    </message>
    <message>
        <source>more than 256 values</source>
        <translation>plus de 256 valeurs</translation>
    </message>
    <message>
        <source>a different number of values than the lines before</source>
        <translation>un nombre de valeurs différent de celui des lignes précédentes</translation>
    </message>
    <message>
        <source>its time goes backwards</source>
        <translation>son temps recule</translation>
    </message>
    <message>
        <source>not readable</source>
        <translation>illisible</translation>
    </message>
    <message>
        <source>image %1 dropped, %2: &quot;%3&quot;</source>
        <translation>image %1 rejetée, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1 dropped, %2: &quot;%3&quot;</source>
        <translation>mesure %1 rejetée, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1 dropped, %2: &quot;%3&quot;</source>
        <translation>ligne %1 rejetée, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>image %1, %2: &quot;%3&quot;</source>
        <translation>image %1, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>reading %1, %2: &quot;%3&quot;</source>
        <translation>mesure %1, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>line %1, %2: &quot;%3&quot;</source>
        <translation>ligne %1, %2&#xa0;: &quot;%3&quot;</translation>
    </message>
    <message>
        <source>the compressed file is damaged; --check says what is lost, and --repair saves what can be read</source>
        <translation>le fichier compressé est endommagé&#xa0;; --check dit ce qui est perdu, et --repair sauve ce qui est lisible</translation>
    </message>
    <message>
        <source>it should be #frame TIME ROWS COLUMNS</source>
        <translation>il faudrait #frame TEMPS LIGNES COLONNES</translation>
    </message>
    <message>
        <source>the time is not a number</source>
        <translation>le temps n&apos;est pas un nombre</translation>
    </message>
    <message>
        <source>a frame has 1 to %1 rows and columns</source>
        <translation>une image a de 1 à %1 lignes et colonnes</translation>
    </message>
    <message>
        <source>only a stream that begins with #corvale 2 has frames</source>
        <translation>seul un flux qui commence par #corvale 2 a des images</translation>
    </message>
    <message>
        <source>it belongs to no frame</source>
        <translation>elle n&apos;appartient à aucune image</translation>
    </message>
    <message>
        <source>row %1 of a frame, which is dropped</source>
        <translation>ligne %1 d&apos;une image, qui est rejetée</translation>
    </message>
    <message numerus="yes">
        <source>the frame ends after %n row(s)</source>
        <translation>
            <numerusform>l&apos;image se termine après %n ligne</numerusform>
            <numerusform>l&apos;image se termine après %n lignes</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 values, but the detector has %2</source>
        <translation>%1 valeurs, mais le détecteur en a %2</translation>
    </message>
    <message>
        <source>#corvale: only the versions 1 and 2 are known</source>
        <translation>#corvale&#xa0;: seules les versions 1 et 2 sont connues</translation>
    </message>
    <message>
        <source>#channels: 1 to %1 names are needed, with commas between them</source>
        <translation>#channels&#xa0;: il faut de 1 à %1 noms séparés par des virgules</translation>
    </message>
    <message>
        <source>#layout: it should be channels, strips, pixels, matrix or spots</source>
        <translation>#layout&#xa0;: il faudrait channels, strips, pixels, matrix ou spots</translation>
    </message>
    <message>
        <source>#range: two numbers are needed, the lower one first</source>
        <translation>#range&#xa0;: il faut deux nombres, le plus petit d&apos;abord</translation>
    </message>
    <message>
        <source>#limits: the name of a channel and four numbers are needed</source>
        <translation>#limits&#xa0;: il faut le nom d&apos;un canal et quatre nombres</translation>
    </message>
    <message>
        <source>#limits: there are more names than channels</source>
        <translation>#limits&#xa0;: il y a plus de noms que de canaux</translation>
    </message>
    <message>
        <source>the stream has no channel &quot;%1&quot;</source>
        <translation>le flux n&apos;a pas de canal «&#xa0;%1&#xa0;»</translation>
    </message>
    <message>
        <source>#t0: a date and a time are needed, like 2026-03-01T12:00:00Z</source>
        <translation>#t0&#xa0;: il faut une date et une heure, comme 2026-03-01T12:00:00Z</translation>
    </message>
    <message>
        <source>#t0-uncertainty: a time above 0 is needed, like 0.02 s</source>
        <translation>#t0-uncertainty&#xa0;: il faut un temps supérieur à 0, comme 0.02 s</translation>
    </message>
    <message numerus="yes">
        <source>the image ends after %1 of %n value(s)</source>
        <translation>
            <numerusform>l&apos;image se termine après %1 valeur sur %n</numerusform>
            <numerusform>l&apos;image se termine après %1 valeurs sur %n</numerusform>
        </translation>
    </message>
    <message>
        <source>the image ends in its header</source>
        <translation>l&apos;image se termine dans son en-tête</translation>
    </message>
    <message>
        <source>a comment follows its largest value without a blank</source>
        <translation>un commentaire suit sa plus grande valeur sans espace</translation>
    </message>
    <message>
        <source>it does not begin with P2 or P5, as grey images do</source>
        <translation>elle ne commence pas par P2 ou P5 comme les images en niveaux de gris</translation>
    </message>
    <message>
        <source>its header has other characters than digits</source>
        <translation>son en-tête a d&apos;autres caractères que des chiffres</translation>
    </message>
    <message>
        <source>its largest value must be 1 to %1</source>
        <translation>sa plus grande valeur doit être de 1 à %1</translation>
    </message>
    <message>
        <source>value %1 is not a number</source>
        <translation>la valeur %1 n&apos;est pas un nombre</translation>
    </message>
    <message>
        <source>value %1 is above %2, the largest</source>
        <translation>la valeur %1 dépasse %2, la plus grande</translation>
    </message>
    <message>
        <source>it has a line that cannot be read and would be lost: %1</source>
        <translation>il a une ligne illisible qui serait perdue&#xa0;: %1</translation>
    </message>
    <message>
        <source>no channel is computed: the stream has %1, and only independent channels can be computed with</source>
        <translation>aucun canal n&apos;est calculé&#xa0;: le flux a des %1, et seuls des canaux indépendants permettent un calcul</translation>
    </message>
    <message>
        <source>no channel is computed: there would be more than %1 channels; compute fewer</source>
        <translation>aucun canal n&apos;est calculé&#xa0;: il y aurait plus de %1 canaux&#xa0;; calculez-en moins</translation>
    </message>
    <message>
        <source>no channel is computed: %1, %2</source>
        <translation>aucun canal n&apos;est calculé&#xa0;: %1, %2</translation>
    </message>
    <message>
        <source>ALARM: %1 above %2</source>
        <translation>ALARME&#xa0;: %1 au-dessus de %2</translation>
    </message>
    <message>
        <source>ALARM: %1 below %2</source>
        <translation>ALARME&#xa0;: %1 au-dessous de %2</translation>
    </message>
    <message>
        <source>WARNING: %1 above %2</source>
        <translation>ALERTE&#xa0;: %1 au-dessus de %2</translation>
    </message>
    <message>
        <source>WARNING: %1 below %2</source>
        <translation>ALERTE&#xa0;: %1 au-dessous de %2</translation>
    </message>
    <message>
        <source>strips</source>
        <translation>pistes</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>pixels</translation>
    </message>
    <message>
        <source>spots</source>
        <translation>spots</translation>
    </message>
    <message>
        <source>channels</source>
        <translation>canaux</translation>
    </message>
    <message numerus="yes">
        <source>it has %n reading(s), the stream %1</source>
        <translation>
            <numerusform>il a %n mesure, le flux %1</numerusform>
            <numerusform>il a %n mesures, le flux %1</numerusform>
        </translation>
    </message>
    <message>
        <source>it has %1 x %2 cells, the frames %3 x %4</source>
        <translation>il a %1 x %2 cellules, les images %3 x %4</translation>
    </message>
    <message>
        <source>its channels have no places</source>
        <translation>ses canaux n&apos;ont pas de positions</translation>
    </message>
    <message>
        <source>the other side reset the connection instead of closing it</source>
        <translation>l&apos;autre côté a réinitialisé la connexion au lieu de la fermer</translation>
    </message>
    <message>
        <source>the other side closed the connection</source>
        <translation>l&apos;autre côté a fermé la connexion</translation>
    </message>
    <message>
        <source>its text is written in UTF-16. Save the file as UTF-8</source>
        <translation>son texte est en UTF-16. Enregistrez le fichier en UTF-8</translation>
    </message>
    <message>
        <source>column %1 is said to hold the time, but the last column is %2</source>
        <translation>la colonne %1 devrait contenir le temps, mais la dernière colonne est la %2</translation>
    </message>
    <message numerus="yes">
        <source>%n more in the log</source>
        <translation>
            <numerusform>%n autre dans le journal</numerusform>
            <numerusform>%n autres dans le journal</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Monitor::TimeAxisActions</name>
    <message>
        <source>Time &amp;axis</source>
        <translation>Axe du &amp;temps</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatique</translation>
    </message>
    <message>
        <source>Local time where the source tells the moment of its readings, otherwise seconds.</source>
        <translation>Heure locale si la source indique l&apos;instant de ses mesures, sinon secondes.</translation>
    </message>
    <message>
        <source>&amp;Seconds</source>
        <translation>&amp;Secondes</translation>
    </message>
    <message>
        <source>The times as the source gives them.</source>
        <translation>Les temps tels que la source les donne.</translation>
    </message>
    <message>
        <source>&amp;Relative</source>
        <translation>&amp;Relatif</translation>
    </message>
    <message>
        <source>The time from the newest reading.</source>
        <translation>Le temps depuis la dernière mesure.</translation>
    </message>
    <message>
        <source>&amp;Local time</source>
        <translation>&amp;Heure locale</translation>
    </message>
    <message>
        <source>Date and time in the time zone of this computer.</source>
        <translation>Date et heure dans le fuseau de cet ordinateur.</translation>
    </message>
    <message>
        <source>&amp;UTC</source>
        <translation>&amp;UTC</translation>
    </message>
    <message>
        <source>Date and time in UTC.</source>
        <translation>Date et heure en UTC.</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerAction</name>
    <message>
        <source>&amp;Trigger...</source>
        <translation>&amp;Déclenchement...</translation>
    </message>
</context>
<context>
    <name>Monitor::TriggerDialog</name>
    <message>
        <source>Readings that pass this level begin a sweep</source>
        <translation>Les mesures qui franchissent ce niveau commencent un balayage</translation>
    </message>
    <message>
        <source>How far a reading must have been on the other side of the level; more than the noise</source>
        <translation>De combien une mesure doit avoir été de l&apos;autre côté du niveau&#xa0;; plus que le bruit</translation>
    </message>
    <message>
        <source>Shortest time between two triggers</source>
        <translation>Temps minimal entre deux déclenchements</translation>
    </message>
    <message>
        <source>&amp;Arm</source>
        <translation>A&amp;rmer</translation>
    </message>
    <message>
        <source>Trigger</source>
        <translation>Déclenchement</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Arrêt</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Single</source>
        <translation>Unique</translation>
    </message>
    <message>
        <source>Automatic shows sweeps also where no trigger comes; Single shows one</source>
        <translation>Automatique montre des balayages même sans déclenchement&#xa0;; Unique n&apos;en montre qu&apos;un</translation>
    </message>
    <message>
        <source>Rising</source>
        <translation>Montant</translation>
    </message>
    <message>
        <source>Falling</source>
        <translation>Descendant</translation>
    </message>
    <message>
        <source>Either</source>
        <translation>Les deux</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Share of the sweep that lies before the trigger</source>
        <translation>Part du balayage située avant le déclenchement</translation>
    </message>
    <message>
        <source>Wait for the next trigger</source>
        <translation>Attendre le prochain déclenchement</translation>
    </message>
    <message>
        <source>&amp;Mode:</source>
        <translation>&amp;Mode&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Channel:</source>
        <translation>&amp;Canal&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Level:</source>
        <translation>&amp;Niveau&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Edge:</source>
        <translation>&amp;Front&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Hysteresis:</source>
        <translation>&amp;Hystérésis&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Before the trigger:</source>
        <translation>&amp;Avant le déclenchement&#xa0;:</translation>
    </message>
    <message>
        <source>Hold-&amp;off in s:</source>
        <translation>&amp;Temps mort en s&#xa0;:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>État&#xa0;:</translation>
    </message>
    <message>
        <source>%1 in %2</source>
        <translation>%1 en %2</translation>
    </message>
    <message>
        <source>Numbers need a decimal point; hysteresis and hold-off are 0 or more.</source>
        <translation>Les nombres ont un point décimal&#xa0;; hystérésis et temps mort valent 0 ou plus.</translation>
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
</context>
<context>
    <name>Monitor::ValueActions</name>
    <message>
        <source>&amp;Value axis...</source>
        <translation>&amp;Axe des valeurs...</translation>
    </message>
    <message>
        <source>&amp;Legend</source>
        <translation>&amp;Légende</translation>
    </message>
    <message>
        <source>Channel &amp;names under bars</source>
        <translation>&amp;Noms des canaux sous les barres</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>&amp;Couleurs</translation>
    </message>
    <message>
        <source>&amp;Eight colours</source>
        <translation>&amp;Huit couleurs</translation>
    </message>
    <message>
        <source>&amp;Many colours, with dashes</source>
        <translation>&amp;Nombreuses couleurs, avec tirets</translation>
    </message>
    <message>
        <source>&amp;Safe for colour-blind eyes, with dashes</source>
        <translation>&amp;Lisible par les daltoniens, avec tirets</translation>
    </message>
</context>
<context>
    <name>Monitor::ValueAxisDialog</name>
    <message>
        <source>Value axis</source>
        <translation>Axe des valeurs</translation>
    </message>
    <message>
        <source>In the unit of the axis, or with a unit: -20, 250 pA. Enter sets it.</source>
        <translation>Dans l&apos;unité de l&apos;axe, ou avec une unité&#xa0;: -20, 250 pA. Entrée l&apos;applique.</translation>
    </message>
    <message>
        <source>Automatic chooses the unit that suits the scale.</source>
        <translation>Automatique choisit l&apos;unité adaptée à l&apos;échelle.</translation>
    </message>
    <message>
        <source>Ma&amp;ximum:</source>
        <translation>&amp;Maximum&#xa0;:</translation>
    </message>
    <message>
        <source>Mi&amp;nimum:</source>
        <translation>M&amp;inimum&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>&amp;Unité&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Logarithmic</source>
        <translation>&amp;Logarithmique</translation>
    </message>
    <message>
        <source>Values that are 0 or negative cannot be shown then; the plot names their channels (Alt+L)</source>
        <translation>Les valeurs nulles ou négatives ne peuvent alors pas être montrées&#xa0;; le tracé nomme leurs canaux (Alt+L)</translation>
    </message>
    <message>
        <source>&amp;Set range</source>
        <translation>&amp;Fixer la plage</translation>
    </message>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatique</translation>
    </message>
    <message>
        <source>Show the range from minimum to maximum (Enter)</source>
        <translation>Montrer la plage du minimum au maximum (Entrée)</translation>
    </message>
    <message>
        <source>Let the range follow the readings (Alt+A)</source>
        <translation>Laisser la plage suivre les mesures (Alt+A)</translation>
    </message>
    <message>
        <source>The minimum must be below the maximum.</source>
        <translation>Le minimum doit être inférieur au maximum.</translation>
    </message>
    <message>
        <source>Automatic (%1)</source>
        <translation>Automatique (%1)</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value in %2. Write one like -20, or with its unit like 250 pA.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas une valeur en %2. En écrire une comme -20, ou avec son unité comme 250 pA.</translation>
    </message>
    <message>
        <source>&amp;Right maximum:</source>
        <translation>Maximum à &amp;droite&#xa0;:</translation>
    </message>
    <message>
        <source>Ri&amp;ght minimum:</source>
        <translation>Minimum à dr&amp;oite&#xa0;:</translation>
    </message>
    <message>
        <source>Righ&amp;t unit:</source>
        <translation>Unité à droi&amp;te&#xa0;:</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number. Write one like -20 or 2.5e-7.</source>
        <translation>«&#xa0;%1&#xa0;» n&apos;est pas un nombre. En écrire un comme -20 ou 2.5e-7.</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
</context>
<context>
    <name>Monitor::VerdictPage</name>
    <message>
        <source>Res&amp;iduals, poor:</source>
        <translation>Rési&amp;dus, médiocre&#xa0;:</translation>
    </message>
    <message>
        <source>R&amp;2:</source>
        <translation>R&amp;2&#xa0;:</translation>
    </message>
    <message>
        <source>A fit with a smaller R2 is poor.</source>
        <translation>Un ajustement dont R2 est plus petit est médiocre.</translation>
    </message>
    <message>
        <source>Cha&amp;rge in bad cells:</source>
        <translation>&amp;Charge dans de mauvaises cellules&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Background:</source>
        <translation>Fo&amp;nd&#xa0;:</translation>
    </message>
    <message>
        <source>Resid&amp;uals, not valid:</source>
        <translation>Résid&amp;us, non valide&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Widest sigma:</source>
        <translation>Si&amp;gma le plus large&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Peak over noise:</source>
        <translation>&amp;Pic sur bruit&#xa0;:</translation>
    </message>
    <message>
        <source>Profile, histogram and report say &quot;DATA VALID&quot;, &quot;DATA VALID, FIT POOR&quot; or &quot;DATA NOT VALID&quot; by these limits. A detector whose description states limits of its own (its key &quot;verdict&quot;) is judged by those alone. --stats takes these limits from --settings FILE.</source>
        <translation>Profil, histogramme et rapport disent «&#xa0;DONNÉES VALIDES », «&#xa0;DONNÉES VALIDES, AJUSTEMENT MÉDIOCRE&#xa0;» ou «&#xa0;DONNÉES NON VALIDES&#xa0;» selon ces limites. Un détecteur dont la description donne ses propres limites (sa clé «&#xa0;verdict ») est jugé selon celles-ci seulement. --stats prend ces limites dans --settings FICHIER.</translation>
    </message>
    <message>
        <source>%1 Usual: %2.</source>
        <translation>%1 Habituel&#xa0;: %2.</translation>
    </message>
    <message>
        <source>Usua&amp;l limits</source>
        <translation>&amp;Limites habituelles</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is poor.</source>
        <translation>Un ajustement dont les résidus (RMS sur le pic) sont plus grands est médiocre.</translation>
    </message>
    <message>
        <source>A fit is poor if this much of the charge lies in dead, hot or saturated cells.</source>
        <translation>Un ajustement est médiocre si cette part de la charge se trouve dans des cellules mortes, chaudes ou saturées.</translation>
    </message>
    <message>
        <source>An estimate that does not subtract a background this large, over the peak, is poor.</source>
        <translation>Une estimation qui ne soustrait pas un fond aussi grand (sur le pic) est médiocre.</translation>
    </message>
    <message>
        <source>A fit whose residuals (rms over the peak) are larger is not valid.</source>
        <translation>Un ajustement dont les résidus (RMS sur le pic) sont plus grands n&apos;est pas valide.</translation>
    </message>
    <message>
        <source>A result with a wider sigma, over the length of the detector, is not valid.</source>
        <translation>Un résultat dont le sigma, rapporté à la longueur du détecteur, est plus large n&apos;est pas valide.</translation>
    </message>
    <message>
        <source>A peak that is lower than this many times the noise is not taken for a beam.</source>
        <translation>Un pic plus bas que ce multiple du bruit n&apos;est pas pris pour un faisceau.</translation>
    </message>
</context>
<context>
    <name>Monitor::ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>A&amp;ffichage</translation>
    </message>
    <message>
        <source>Values and cha&amp;nnels</source>
        <translation>Valeurs &amp;et canaux</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>P&amp;ause</translation>
    </message>
    <message>
        <source>&amp;Time span</source>
        <translation>D&amp;urée</translation>
    </message>
    <message>
        <source>&amp;Strip chart</source>
        <translation>Dé&amp;filement</translation>
    </message>
    <message>
        <source>S&amp;cope</source>
        <translation>&amp;Oscilloscope</translation>
    </message>
    <message>
        <source>&amp;Histogram</source>
        <translation>&amp;Histogramme</translation>
    </message>
    <message>
        <source>2D pro&amp;file</source>
        <translation>Profil 2&amp;D</translation>
    </message>
    <message>
        <source>P&amp;osition</source>
        <translation>Pos&amp;ition</translation>
    </message>
    <message>
        <source>Spot &amp;map</source>
        <translation>&amp;Carte des spots</translation>
    </message>
    <message>
        <source>Position &amp;errors</source>
        <translation>E&amp;rreurs de position</translation>
    </message>
    <message>
        <source>F&amp;ull screen</source>
        <translation>&amp;Plein écran</translation>
    </message>
    <message>
        <source>&amp;Big numbers</source>
        <translation>&amp;Grands chiffres</translation>
    </message>
</context>
<context>
    <name>TangoText</name>
    <message>
        <source>&quot;%1&quot; should be tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, with #dbase=no at its end where HOST:PORT is a device server, not a database</source>
        <translation>«&#xa0;%1&#xa0;» devrait être tango://HOST:PORT/DOMAIN/FAMILY/MEMBER/ATTRIBUTE,ATTRIBUTE, avec #dbase=no à la fin si HOST:PORT est un serveur de dispositifs et non une base de données</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names %2 attributes; a window shows %3 at most</source>
        <translation>«&#xa0;%1&#xa0;» nomme %2 attributs&#xa0;; une fenêtre en montre %3 au plus</translation>
    </message>
    <message>
        <source>&quot;%1&quot;: only ?every=100ms may follow the attributes, with a time from 1 ms to 60 min</source>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: seul ?every=100ms peut suivre les attributs, avec un temps de 1 ms à 60 min</translation>
    </message>
    <message>
        <source>an error without a description</source>
        <translation>une erreur sans description</translation>
    </message>
    <message>
        <source>%1 does not answer in time</source>
        <translation>%1 ne répond pas à temps</translation>
    </message>
    <message>
        <source>there is no device %1</source>
        <translation>il n&apos;y a pas de dispositif %1</translation>
    </message>
    <message>
        <source>no server answers for %1</source>
        <translation>aucun serveur ne répond pour %1</translation>
    </message>
    <message>
        <source>%1 is an image of %2 x %3 values; a window shows at most %4 x %4</source>
        <translation>%1 est une image de %2 x %3 valeurs&#xa0;; une fenêtre montre au plus %4 x %4</translation>
    </message>
    <message>
        <source>%1 has %2 values; a window shows at most %3</source>
        <translation>%1 a %2 valeurs&#xa0;; une fenêtre en affiche au plus %3</translation>
    </message>
    <message>
        <source>its values cannot be read as numbers</source>
        <translation>ses valeurs ne peuvent pas être lues comme des nombres</translation>
    </message>
    <message>
        <source>Check the names, that the device server runs, and that the address ends with #dbase=no if its host and port are those of a device server.</source>
        <translation>Vérifiez les noms, que le serveur de dispositifs fonctionne, et que l&apos;adresse se termine par #dbase=no si l&apos;hôte et le port sont ceux d&apos;un serveur de dispositifs.</translation>
    </message>
    <message>
        <source>%1, without %2, which has no valid value</source>
        <translation>%1, sans %2, qui n&apos;a pas de valeur valide</translation>
    </message>
    <message>
        <source>%1 is of the type %2, not a number</source>
        <translation>%1 est du type %2, pas un nombre</translation>
    </message>
    <message>
        <source>a window shows scalars, or one spectrum or two, or one image; read the others in a window of their own</source>
        <translation>une fenêtre montre des scalaires, ou un ou deux spectres, ou une image&#xa0;; lisez les autres dans une fenêtre à part</translation>
    </message>
    <message>
        <source>&quot;%1&quot; names the attribute %2 twice</source>
        <translation>«&#xa0;%1&#xa0;» nomme deux fois l&apos;attribut %2</translation>
    </message>
    <message>
        <source>%1 does not tell what its attributes are</source>
        <translation>%1 ne dit pas ce que sont ses attributs</translation>
    </message>
    <message>
        <source>&quot;%1&quot; should be tango:DOMAIN/FAMILY/MEMBER, a device that is defined in the database, or tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, which is served at that address without a database</source>
        <translation>«&#xa0;%1&#xa0;» doit être tango:DOMAIN/FAMILY/MEMBER, un appareil défini dans la base de données, ou tango://HOST:PORT/DOMAIN/FAMILY/MEMBER#dbase=no, servi à cette adresse sans base de données</translation>
    </message>
    <message>
        <source>%1 is given twice</source>
        <translation>%1 est donné deux fois</translation>
    </message>
    <message>
        <source>all devices of a run belong to one server, with the same host and port</source>
        <translation>tous les appareils d&apos;une exécution appartiennent à un seul serveur, avec le même hôte et le même port</translation>
    </message>
    <message>
        <source>the database has no device %1; define it with: tango_admin --add-server %2/%3 CorvaleMonitor %1</source>
        <translation>la base de données n&apos;a pas d&apos;appareil %1&#xa0;; pour le définir&#xa0;: tango_admin --add-server %2/%3 CorvaleMonitor %1</translation>
    </message>
    <message>
        <source>the device %1 belongs to the server %2, not to %3</source>
        <translation>l&apos;appareil %1 appartient au serveur %2, et non à %3</translation>
    </message>
    <message>
        <source>the database has %1 and %2 in different servers; one run serves one of them</source>
        <translation>dans la base de données, %1 et %2 sont dans des serveurs différents&#xa0;; une exécution en sert un</translation>
    </message>
    <message>
        <source>another program serves %1 already</source>
        <translation>un autre programme sert déjà %1</translation>
    </message>
    <message>
        <source>the database does not answer: %1</source>
        <translation>la base de données ne répond pas&#xa0;: %1</translation>
    </message>
    <message>
        <source>nothing can listen at %1:%2: another program does, or the host is not this computer</source>
        <translation>impossible d&apos;écouter à %1:%2&#xa0;: un autre programme le fait, ou l&apos;hôte n&apos;est pas cet ordinateur</translation>
    </message>
    <message>
        <source>the server does not have all of the devices</source>
        <translation>le serveur n&apos;a pas tous les appareils</translation>
    </message>
    <message>
        <source>the database does not answer in time</source>
        <translation>la base de données ne répond pas à temps</translation>
    </message>
</context>
</TS>
