<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source> points</source>
        <translation> points</translation>
    </message>
    <message>
        <source>%1 (cannot be read)</source>
        <translation>%1 (illisible)</translation>
    </message>
    <message>
        <source>%1 as they were</source>
        <translation>%1 inchangés</translation>
    </message>
    <message>
        <source>%1 as to-do lines</source>
        <translation>%1 en lignes à cocher</translation>
    </message>
    <message>
        <source>%1 at line %2, column %3</source>
        <translation>%1 à la ligne %2, colonne %3</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1 n’a pas pu être lancé : %2</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 ne répond pas.</translation>
    </message>
    <message>
        <source>%1 does not understand what it was asked (%2).</source>
        <translation>%1 ne comprend pas la demande (%2).</translation>
    </message>
    <message>
        <source>%1 ended before it answered.</source>
        <translation>%1 s’est terminé avant d’avoir répondu.</translation>
    </message>
    <message>
        <source>%1 gave an answer that cannot be understood (%2).</source>
        <translation>La réponse de %1 est incompréhensible (%2).</translation>
    </message>
    <message>
        <source>%1 imported</source>
        <translation>%1 importées</translation>
    </message>
    <message>
        <source>%1 in skipped notes</source>
        <translation>%1 dans des notes ignorées</translation>
    </message>
    <message>
        <source>%1 is neither running nor installed.</source>
        <translation>%1 n’est ni ouvert ni installé.</translation>
    </message>
    <message>
        <source>%1 items could not be imported. The first is “%2”: %3</source>
        <translation>%1 éléments n’ont pas pu être importés. Le premier est « %2 » : %3</translation>
    </message>
    <message>
        <source>%1 kept at the end of their notes</source>
        <translation>%1 gardées à la fin de leurs notes</translation>
    </message>
    <message>
        <source>%1 lead to imported notes</source>
        <translation>%1 mènent à des notes importées</translation>
    </message>
    <message>
        <source>%1 left out</source>
        <translation>%1 omises</translation>
    </message>
    <message>
        <source>%1 not imported</source>
        <translation>%1 non importées</translation>
    </message>
    <message>
        <source>%1 refused what it was asked (%2).</source>
        <translation>%1 a refusé la demande (%2).</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 affichées</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 ignorées</translation>
    </message>
    <message>
        <source>%1$@ of %2$@</source>
        <translation>%1$@ sur %2$@</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>%@/sec</source>
        <translation>%@/s</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>%Ln carnet coché</numerusform>
            <numerusform>%Ln carnets cochés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln note</numerusform>
            <numerusform>%Ln notes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>%Ln note a été importée.</numerusform>
            <numerusform>%Ln notes ont été importées.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>%Ln note a été ignorée.</numerusform>
            <numerusform>%Ln notes ont été ignorées.</numerusform>
        </translation>
    </message>
    <message>
        <source>%ld day remaining</source>
        <translation>%ld jour restant</translation>
    </message>
    <message>
        <source>%ld days remaining</source>
        <translation>%ld jours restants</translation>
    </message>
    <message>
        <source>%ld hour remaining</source>
        <translation>%ld heure restante</translation>
    </message>
    <message>
        <source>%ld hours remaining</source>
        <translation>%ld heures restantes</translation>
    </message>
    <message>
        <source>%ld minute remaining</source>
        <translation>%ld minute restante</translation>
    </message>
    <message>
        <source>%ld minutes remaining</source>
        <translation>%ld minutes restantes</translation>
    </message>
    <message>
        <source>%ld second remaining</source>
        <translation>%ld seconde restante</translation>
    </message>
    <message>
        <source>%ld seconds remaining</source>
        <translation>%ld secondes restantes</translation>
    </message>
    <message>
        <source>%lu notes exported</source>
        <translation>%lu notes exportées</translation>
    </message>
    <message>
        <source>%lu of %lu notes exported</source>
        <translation>%lu notes exportées sur %lu</translation>
    </message>
    <message>
        <source>&amp;About Vupuge</source>
        <translation>À &amp;propos de Vupuge</translation>
    </message>
    <message>
        <source>&amp;Background colour:</source>
        <translation>Couleur du &amp;fond :</translation>
    </message>
    <message>
        <source>&amp;Check All Notebooks</source>
        <translation>&amp;Cocher tous les carnets</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Terminé</translation>
    </message>
    <message>
        <source>&amp;ENEX Files</source>
        <translation>Fichiers &amp;ENEX</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;Find Notebook</source>
        <translation>&amp;Rechercher un carnet</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>&amp;Police :</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importer</translation>
    </message>
    <message>
        <source>&amp;Notebooks to import:</source>
        <translation>&amp;Carnets à importer :</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Notes</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Options…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Read files of today's Evernote whole</source>
        <translation>&amp;Lire en entier les fichiers de l’Evernote actuel</translation>
    </message>
    <message>
        <source>&amp;Release Notes</source>
        <translation>&amp;Notes de version</translation>
    </message>
    <message>
        <source>&amp;Restore Defaults</source>
        <translation>&amp;Rétablir les valeurs par défaut</translation>
    </message>
    <message>
        <source>&amp;Text colour:</source>
        <translation>&amp;Couleur du texte :</translation>
    </message>
    <message>
        <source>&amp;Uncheck All Notebooks</source>
        <translation>&amp;Décocher tous les carnets</translation>
    </message>
    <message>
        <source>&amp;Web Pages</source>
        <translation>Pages &amp;web</translation>
    </message>
    <message>
        <source>&amp;Zoom:</source>
        <translation>&amp;Zoom :</translation>
    </message>
    <message>
        <source>A date is too far off for an XML property list.</source>
        <translation>Une date est trop éloignée pour une liste de propriétés XML.</translation>
    </message>
    <message>
        <source>A date of the note is damaged and was left out.</source>
        <translation>Une date de la note est endommagée et a été omise.</translation>
    </message>
    <message>
        <source>A library folder takes no destination, rating, comments, label or tags.</source>
        <translation>Un dossier de bibliothèque n’accepte ni destination, ni note, ni commentaires, ni label, ni étiquettes.</translation>
    </message>
    <message>
        <source>A link is changed where its text is the title of exactly one note of the file. All others keep leading to Evernote.</source>
        <translation>Un lien est modifié lorsque son texte est le titre d’une seule note du fichier. Tous les autres mènent toujours à Evernote.</translation>
    </message>
    <message>
        <source>A note is not there any more.</source>
        <translation>Une note n’existe plus.</translation>
    </message>
    <message>
        <source>A secure connection to the server could not be made.</source>
        <translation>Impossible d’établir une connexion sécurisée au serveur.</translation>
    </message>
    <message>
        <source>A server with the specified host name could not be found.</source>
        <translation>Le serveur indiqué est introuvable.</translation>
    </message>
    <message>
        <source>A tag with more than %1 attributes</source>
        <translation>Une balise avec plus de %1 attributs</translation>
    </message>
    <message>
        <source>A value has no place in a property list.</source>
        <translation>Une valeur n’a pas sa place dans une liste de propriétés.</translation>
    </message>
    <message>
        <source>An error occurred while exporting.</source>
        <translation>Une erreur s’est produite lors de l’exportation.</translation>
    </message>
    <message>
        <source>An older way of getting notes out of Evernote, one file for each note. ENEX keeps more.</source>
        <translation>Une ancienne manière d’extraire les notes d’Evernote, un fichier par note. ENEX en conserve davantage.</translation>
    </message>
    <message>
        <source>An unknown error occurred.</source>
        <translation>Une erreur inconnue s’est produite.</translation>
    </message>
    <message>
        <source>Another import is running.</source>
        <translation>Une autre importation est en cours.</translation>
    </message>
    <message>
        <source>Another note has the same link; only that one was kept.</source>
        <translation>Une autre note a le même lien ; seule celle-ci a été conservée.</translation>
    </message>
    <message>
        <source>Attachments that the files do not hold: %1</source>
        <translation>Pièces jointes absentes des fichiers : %1</translation>
    </message>
    <message>
        <source>Attachments that the note shows but the file does not hold: %1.</source>
        <translation>Pièces jointes que la note montre mais que le fichier ne contient pas : %1.</translation>
    </message>
    <message>
        <source>Attachments: %1</source>
        <translation>Pièces jointes : %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Signet</translation>
    </message>
    <message>
        <source>Brings Evernote notes into Quillery.</source>
        <translation>Transfère les notes d’Evernote dans Quillery.</translation>
    </message>
    <message>
        <source>C&amp;hoose Folder...</source>
        <translation>C&amp;hoisir un dossier…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Annulation…</translation>
    </message>
    <message>
        <source>Cannot create input stream.</source>
        <translation>Impossible de créer le flux d’entrée.</translation>
    </message>
    <message>
        <source>Cannot create parser.</source>
        <translation>Impossible de créer l’analyseur.</translation>
    </message>
    <message>
        <source>Cannot parse "%@" data.</source>
        <translation>Impossible d’analyser les données de « %@ ».</translation>
    </message>
    <message>
        <source>Choose &amp;Folder...</source>
        <translation>Choisir un &amp;dossier…</translation>
    </message>
    <message>
        <source>Choose ENEX File...</source>
        <translation>Choisir un fichier ENEX…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Code: %ld</source>
        <translation>Code : %ld</translation>
    </message>
    <message>
        <source>Could not connect to the server.</source>
        <translation>Impossible de se connecter au serveur.</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>Par défaut (%1)</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Document</translation>
    </message>
    <message>
        <source>Drop an ENEX file here</source>
        <translation>Déposez un fichier ENEX ici</translation>
    </message>
    <message>
        <source>Due: %1</source>
        <translation>Échéance : %1</translation>
    </message>
    <message>
        <source>Elements within more than %1 others</source>
        <translation>Éléments imbriqués dans plus de %1 autres</translation>
    </message>
    <message>
        <source>Encrypted passages, which cannot be read: %1. Asterisks stand in their place.</source>
        <translation>Passages chiffrés, illisibles : %1. Des astérisques les remplacent.</translation>
    </message>
    <message>
        <source>Encrypted passages: %1</source>
        <translation>Passages chiffrés : %1</translation>
    </message>
    <message>
        <source>Evernote 10 and later write ENEX files in a new way. Read as they stand, such files lose dates and tasks, and tags gain empty entries. Files that are dropped on the window are recognized as long as nothing is chosen here.</source>
        <translation>Evernote 10 et les versions suivantes écrivent les fichiers ENEX d’une nouvelle façon. Lus tels quels, ces fichiers perdent des dates et des tâches, et les étiquettes reçoivent des entrées vides. Les fichiers déposés sur la fenêtre sont reconnus tant que rien n’est choisi ici.</translation>
    </message>
    <message>
        <source>Evernote 5.2.0 or later is required.</source>
        <translation>Evernote 5.2.0 ou une version ultérieure est nécessaire.</translation>
    </message>
    <message>
        <source>Evernote did not export this note.</source>
        <translation>Evernote n’a pas exporté cette note.</translation>
    </message>
    <message>
        <source>Evernote export files (%1)</source>
        <translation>Fichiers d’exportation d’Evernote (%1)</translation>
    </message>
    <message>
        <source>Everything came across.</source>
        <translation>Tout a été importé.</translation>
    </message>
    <message>
        <source>Everything that is made of each note stands in the log of the next import.</source>
        <translation>Le journal de la prochaine importation contient tout ce que devient chaque note.</translation>
    </message>
    <message>
        <source>Export notes from Evernote in the format ENEX and try again.</source>
        <translation>Exportez des notes depuis Evernote au format ENEX, puis réessayez.</translation>
    </message>
    <message>
        <source>Exported files in the folder “%1” are listed here as notebooks.</source>
        <translation>Les fichiers exportés du dossier « %1 » apparaissent ici comme carnets.</translation>
    </message>
    <message>
        <source>Exporting Notes</source>
        <translation>Exportation des notes</translation>
    </message>
    <message>
        <source>Exporting notes from "%@"</source>
        <translation>Exportation des notes de « %@ »</translation>
    </message>
    <message>
        <source>Exports Folder</source>
        <translation>Dossier des exportations</translation>
    </message>
    <message>
        <source>Exports folder:</source>
        <translation>Dossier des exportations :</translation>
    </message>
    <message>
        <source>Fi&amp;xed-pitch font:</source>
        <translation>Police à c&amp;hasse fixe :</translation>
    </message>
    <message>
        <source>Files to import, and folders that hold such files.</source>
        <translation>Fichiers à importer et dossiers qui en contiennent.</translation>
    </message>
    <message>
        <source>Flagged</source>
        <translation>Signalée</translation>
    </message>
    <message>
        <source>Font &amp;size:</source>
        <translation>&amp;Taille de la police :</translation>
    </message>
    <message>
        <source>Getting notebook names...</source>
        <translation>Lecture des noms des carnets…</translation>
    </message>
    <message>
        <source>Have Evernote export notes as HTML</source>
        <translation>Faire exporter les notes en HTML par Evernote</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Import ENEX Fi&amp;le...</source>
        <translation>Importer un fichier ENE&amp;X…</translation>
    </message>
    <message>
        <source>Import ENEX File</source>
        <translation>Importer un fichier ENEX</translation>
    </message>
    <message>
        <source>Import “%1”</source>
        <translation>Importer « %1 »</translation>
    </message>
    <message>
        <source>Imported from Evernote, %@</source>
        <translation>Importé d’Evernote, %@</translation>
    </message>
    <message>
        <source>In Evernote, choose a notebook, then “Export Notebook…” and the format ENEX. Drop the file that you get on this window, or choose it here.</source>
        <translation>Dans Evernote, choisissez un carnet, puis « Exporter le carnet… » et le format ENEX. Déposez le fichier obtenu sur cette fenêtre ou choisissez-le ici.</translation>
    </message>
    <message>
        <source>Initializing Evernote...</source>
        <translation>Initialisation d’Evernote…</translation>
    </message>
    <message>
        <source>Invalid content data for resource.</source>
        <translation>Le contenu de la ressource n’est pas valide.</translation>
    </message>
    <message>
        <source>Invalid crypt tag.</source>
        <translation>Balise de chiffrement non valide.</translation>
    </message>
    <message>
        <source>Invalid media tag.</source>
        <translation>Balise de média non valide.</translation>
    </message>
    <message>
        <source>Invalid todo tag.</source>
        <translation>Balise de tâche non valide.</translation>
    </message>
    <message>
        <source>It does not reach to its end.</source>
        <translation>Il est incomplet.</translation>
    </message>
    <message>
        <source>Keep attachments that a note's text does not show</source>
        <translation>Garder les pièces jointes que le texte d’une note ne montre pas</translation>
    </message>
    <message>
        <source>Keeps dates, tags and tasks of files that Evernote 10 or later has written.</source>
        <translation>Garde les dates, les étiquettes et les tâches des fichiers écrits par Evernote 10 ou ultérieur.</translation>
    </message>
    <message>
        <source>Library Folder</source>
        <translation>Dossier de la bibliothèque</translation>
    </message>
    <message>
        <source>Library folder:</source>
        <translation>Dossier de la bibliothèque :</translation>
    </message>
    <message>
        <source>Links between notes lead to the imported notes</source>
        <translation>Les liens entre notes mènent aux notes importées</translation>
    </message>
    <message>
        <source>Links between notes: %1</source>
        <translation>Liens entre notes : %1</translation>
    </message>
    <message>
        <source>Links that lead to notes which were skipped: %1.</source>
        <translation>Liens qui mènent à des notes ignorées : %1.</translation>
    </message>
    <message>
        <source>Load clipped pages from the web again</source>
        <translation>Recharger depuis le web les pages découpées</translation>
    </message>
    <message>
        <source>Loading notebooks</source>
        <translation>Chargement des carnets</translation>
    </message>
    <message>
        <source>Mark captured pages for Java</source>
        <translation>Marquer les pages capturées pour Java</translation>
    </message>
    <message>
        <source>Mark captured pages for JavaScript</source>
        <translation>Marquer les pages capturées pour JavaScript</translation>
    </message>
    <message>
        <source>Mark captured pages for plug-ins</source>
        <translation>Marquer les pages capturées pour les modules</translation>
    </message>
    <message>
        <source>More marks of tags:</source>
        <translation>Autres marques d’étiquette :</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Film</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Nouvelle note</translation>
    </message>
    <message>
        <source>Next File</source>
        <translation>Fichier suivant</translation>
    </message>
    <message>
        <source>No content data for resource.</source>
        <translation>La ressource n’a pas de contenu.</translation>
    </message>
    <message>
        <source>No notebooks selected!</source>
        <translation>Aucun carnet sélectionné !</translation>
    </message>
    <message>
        <source>Not everything that the files hold came across.</source>
        <translation>Tout le contenu des fichiers n’a pas été importé.</translation>
    </message>
    <message>
        <source>Not imported</source>
        <translation>Non importé</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Notebook</source>
        <translation>Carnet</translation>
    </message>
    <message>
        <source>Notebooks</source>
        <translation>Carnets</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notes</translation>
    </message>
    <message>
        <source>Notes go here on a machine without Quillery.</source>
        <translation>Sur une machine sans Quillery, les notes vont ici.</translation>
    </message>
    <message>
        <source>Notes: %1</source>
        <translation>Notes : %1</translation>
    </message>
    <message>
        <source>Nothing could be imported into “%1”: %2</source>
        <translation>Rien n’a pu être importé dans « %1 » : %2</translation>
    </message>
    <message>
        <source>Nothing in a page is ever run while it is captured, whatever is chosen here.</source>
        <translation>Quel que soit ce choix, rien de ce que contient une page n’est exécuté lors de sa capture.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Objects are nested too deeply.</source>
        <translation>Les objets sont trop imbriqués.</translation>
    </message>
    <message>
        <source>On a machine without Evernote its ENEX files are listed as notebooks, from the next start on.</source>
        <translation>Sur une machine sans Evernote, ses fichiers ENEX apparaissent comme carnets, dès le prochain lancement.</translation>
    </message>
    <message>
        <source>Only marked words in comments are tags</source>
        <translation>Seuls les mots marqués des commentaires sont des étiquettes</translation>
    </message>
    <message>
        <source>Open &amp;Log</source>
        <translation>Ouvrir le &amp;journal</translation>
    </message>
    <message>
        <source>Open Li&amp;brary</source>
        <translation>Ouvrir la &amp;bibliothèque</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Otherwise a web clip is made from what Evernote has kept of the page. Pages are fetched without your cookies and passwords.</source>
        <translation>Sinon, la page est recréée à partir de ce qu’Evernote en a conservé. Les pages sont lues sans vos cookies ni vos mots de passe.</translation>
    </message>
    <message>
        <source>Please ensure the latest version of Evernote is installed and try again.</source>
        <translation>Vérifiez que la dernière version d’Evernote est installée, puis réessayez.</translation>
    </message>
    <message>
        <source>Preparing...</source>
        <translation>Préparation…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>Quillery 3.5 or later is required.</source>
        <translation>Quillery 3.5 ou une version ultérieure est nécessaire.</translation>
    </message>
    <message>
        <source>Quillery app not found.</source>
        <translation>L’application Quillery est introuvable.</translation>
    </message>
    <message>
        <source>Quillery is ending and takes no more imports.</source>
        <translation>Quillery est en train de se terminer et n’accepte plus d’importations.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Read files of today's Evernote whole</source>
        <translation>Lire en entier les fichiers de l’Evernote actuel</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Raison</translation>
    </message>
    <message>
        <source>Recovered Items</source>
        <translation>Éléments récupérés</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Remarque</translation>
    </message>
    <message>
        <source>Reminder: %1</source>
        <translation>Rappel : %1</translation>
    </message>
    <message>
        <source>Repeats: %1</source>
        <translation>Répétition : %1</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Search notebooks by name</source>
        <translation>Rechercher des carnets par nom</translation>
    </message>
    <message>
        <source>Select the notebooks to import and try again.</source>
        <translation>Sélectionnez les carnets à importer, puis réessayez.</translation>
    </message>
    <message>
        <source>Show the ruler in imported notes</source>
        <translation>Afficher la règle dans les notes importées</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>&amp;Taille :</translation>
    </message>
    <message>
        <source>Siz&amp;e:</source>
        <translation>T&amp;aille :</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Ignoré</translation>
    </message>
    <message>
        <source>Skipped notes and remarks</source>
        <translation>Notes ignorées et remarques</translation>
    </message>
    <message>
        <source>Some notes may be missing; the log tells more.</source>
        <translation>Il manque peut-être des notes ; le journal en dit plus.</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Son</translation>
    </message>
    <message>
        <source>Standard f&amp;ont:</source>
        <translation>P&amp;olice standard :</translation>
    </message>
    <message>
        <source>Tasks that were lost because the file was read as it stands: %1.</source>
        <translation>Tâches perdues parce que le fichier a été lu tel quel : %1.</translation>
    </message>
    <message>
        <source>Tasks: %1</source>
        <translation>Tâches : %1</translation>
    </message>
    <message>
        <source>That is what Evernote means by them. Otherwise they are taken for the time on the clock.</source>
        <translation>C’est le sens qu’Evernote leur donne. Sinon, elles sont prises pour l’heure locale.</translation>
    </message>
    <message>
        <source>The Internet connection appears to be offline.</source>
        <translation>La connexion Internet semble interrompue.</translation>
    </message>
    <message>
        <source>The address is not valid.</source>
        <translation>L’adresse n’est pas valide.</translation>
    </message>
    <message>
        <source>The address is of a kind that cannot be loaded.</source>
        <translation>Les adresses de ce type ne peuvent pas être chargées.</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>L’archive est endommagée.</translation>
    </message>
    <message>
        <source>The attachment “%1” stands where the note shows nothing; it was left out.</source>
        <translation>La pièce jointe « %1 » se trouve là où la note ne montre rien ; elle a été omise.</translation>
    </message>
    <message>
        <source>The attributes of “%1” are too large for its file system.</source>
        <translation>Les attributs de « %1 » sont trop grands pour son système de fichiers.</translation>
    </message>
    <message>
        <source>The box in the first column checks or unchecks all notebooks shown.</source>
        <translation>La case de la première colonne coche ou décoche tous les carnets affichés.</translation>
    </message>
    <message>
        <source>The catalogue of an interrupted import is damaged.</source>
        <translation>Le catalogue d’une importation interrompue est endommagé.</translation>
    </message>
    <message>
        <source>The connection to the session bus was lost before %1 answered.</source>
        <translation>La connexion au bus de session a été perdue avant que %1 ait répondu.</translation>
    </message>
    <message>
        <source>The copy of the file could not be written: %1</source>
        <translation>La copie du fichier n’a pas pu être écrite : %1</translation>
    </message>
    <message>
        <source>The damaged settings cannot be kept.</source>
        <translation>Les réglages endommagés ne peuvent pas être conservés.</translation>
    </message>
    <message>
        <source>The document could not be repaired.</source>
        <translation>Le document n’a pas pu être réparé.</translation>
    </message>
    <message>
        <source>The document has no content.</source>
        <translation>Le document n’a pas de contenu.</translation>
    </message>
    <message>
        <source>The document is empty.</source>
        <translation>Le document est vide.</translation>
    </message>
    <message>
        <source>The document is not well-formed</source>
        <translation>Le document n’est pas bien formé</translation>
    </message>
    <message>
        <source>The document, or a tag in it, is too large.</source>
        <translation>Le document, ou une balise, est trop grand.</translation>
    </message>
    <message>
        <source>The encoding “%1” is not supported.</source>
        <translation>L’encodage « %1 » n’est pas pris en charge.</translation>
    </message>
    <message>
        <source>The export “%1” could not be written: %2</source>
        <translation>L’exportation « %1 » n’a pas pu être écrite : %2</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>Le fichier n’existe pas.</translation>
    </message>
    <message>
        <source>The file is a folder.</source>
        <translation>Le fichier est un dossier.</translation>
    </message>
    <message>
        <source>The file is indented, as today's Evernote writes it. Read as it stands, it loses dates, and tags gain empty entries.</source>
        <translation>Le fichier est indenté, comme l’écrit l’Evernote actuel. Lu tel quel, il perd des dates, et les étiquettes reçoivent des entrées vides.</translation>
    </message>
    <message>
        <source>The file is of today's Evernote and was read whole, so that its dates, tags and tasks came across. The options can turn that off.</source>
        <translation>Le fichier vient de l’Evernote actuel et a été lu en entier : ses dates, étiquettes et tâches ont été importées. Les options permettent de désactiver cela.</translation>
    </message>
    <message>
        <source>The file isn’t in the correct format.</source>
        <translation>Le fichier n’est pas au bon format.</translation>
    </message>
    <message>
        <source>The file system does not keep the note's dates or tags on its file.</source>
        <translation>Le système de fichiers ne conserve pas les dates ou les étiquettes de la note.</translation>
    </message>
    <message>
        <source>The file system of “%1” keeps no attributes.</source>
        <translation>Le système de fichiers de « %1 » ne conserve pas d’attributs.</translation>
    </message>
    <message>
        <source>The file “%1” changed while it was read.</source>
        <translation>Le fichier « %1 » a changé pendant sa lecture.</translation>
    </message>
    <message>
        <source>The file “%1” could not be opened: %2.</source>
        <translation>Le fichier « %1 » n’a pas pu être ouvert : %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>Le fichier « %1 » n’a pas pu être lu : %2.</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>Le fichier « %1 » est vide.</translation>
    </message>
    <message>
        <source>The import did not finish.</source>
        <translation>L’importation n’est pas terminée.</translation>
    </message>
    <message>
        <source>The import into “%1” could not be finished; the next one will do so: %2</source>
        <translation>L’importation dans « %1 » n’a pas pu être terminée ; la prochaine s’en chargera : %2</translation>
    </message>
    <message>
        <source>The library “%1” lies in the files folder.</source>
        <translation>La bibliothèque « %1 » se trouve dans le dossier de fichiers.</translation>
    </message>
    <message>
        <source>The load failed.</source>
        <translation>Le chargement a échoué.</translation>
    </message>
    <message>
        <source>The load was cancelled.</source>
        <translation>Le chargement a été annulé.</translation>
    </message>
    <message>
        <source>The manifest asks for “%1” to be removed, which is not its files folder.</source>
        <translation>Le manifeste demande de supprimer « %1 », qui n’est pas son dossier de fichiers.</translation>
    </message>
    <message>
        <source>The manifest is damaged: %1</source>
        <translation>Le manifeste est endommagé : %1</translation>
    </message>
    <message>
        <source>The manifest names “%1”, which does not lie safely in its files folder.</source>
        <translation>Le manifeste cite « %1 », qui ne se trouve pas sûrement dans son dossier de fichiers.</translation>
    </message>
    <message>
        <source>The manifest “%1” could not be read: %2</source>
        <translation>Le manifeste « %1 » n’a pas pu être lu : %2</translation>
    </message>
    <message>
        <source>The manifest “%1” was not written whole, so nothing can be imported from it. Perhaps the disk is full.</source>
        <translation>Le manifeste « %1 » n’a pas été écrit en entier, rien ne peut donc en être importé. Le disque est peut-être plein.</translation>
    </message>
    <message>
        <source>The network connection was lost.</source>
        <translation>La connexion réseau a été perdue.</translation>
    </message>
    <message>
        <source>The note does not belong to a file of exported notes.</source>
        <translation>La note n’appartient à aucun fichier de notes exportées.</translation>
    </message>
    <message>
        <source>The note's markup was malformed and has been repaired.</source>
        <translation>Le balisage de la note était mal formé et a été réparé.</translation>
    </message>
    <message>
        <source>The note's text could not be laid out and is missing: %1</source>
        <translation>Le texte de la note n’a pas pu être mis en page et manque : %1</translation>
    </message>
    <message>
        <source>The note's text does not show the attachment “%1”; it was left out.</source>
        <translation>Le texte de la note ne montre pas la pièce jointe « %1 » ; elle a été omise.</translation>
    </message>
    <message>
        <source>The notebook is not there any more.</source>
        <translation>Le carnet n’existe plus.</translation>
    </message>
    <message>
        <source>The notebook “%1” holds more notes than can be listed.</source>
        <translation>Le carnet « %1 » contient plus de notes qu’il n’est possible d’en énumérer.</translation>
    </message>
    <message>
        <source>The operation could not be completed. (%1 error %2.)</source>
        <translation>L’opération n’a pas pu s’achever. (%1 erreur %2.)</translation>
    </message>
    <message>
        <source>The original of “%1” is not at “%2”.</source>
        <translation>L’original de « %1 » n’est pas à « %2 ».</translation>
    </message>
    <message>
        <source>The page could not be read.</source>
        <translation>La page n’a pas pu être lue.</translation>
    </message>
    <message>
        <source>The page has more resources than are loaded.</source>
        <translation>La page compte plus de ressources qu’il n’en est chargé.</translation>
    </message>
    <message>
        <source>The page was loaded again; its attachment “%1” was left out.</source>
        <translation>La page a été rechargée ; sa pièce jointe « %1 » a été omise.</translation>
    </message>
    <message>
        <source>The page was loaded again; the note's tasks were left out: %1.</source>
        <translation>La page a été rechargée ; les tâches de la note ont été omises : %1.</translation>
    </message>
    <message>
        <source>The page “%1” could not be opened.</source>
        <translation>La page « %1 » n’a pas pu être ouverte.</translation>
    </message>
    <message>
        <source>The parser was aborted.</source>
        <translation>L’analyse a été interrompue.</translation>
    </message>
    <message>
        <source>The property list is damaged.</source>
        <translation>La liste de propriétés est endommagée.</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>La liste de propriétés est trop imbriquée.</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>La requête a expiré.</translation>
    </message>
    <message>
        <source>The resource is too large.</source>
        <translation>La ressource est trop volumineuse.</translation>
    </message>
    <message>
        <source>The response could not be decoded.</source>
        <translation>La réponse n’a pas pu être décodée.</translation>
    </message>
    <message>
        <source>The server gave a response that was not understood.</source>
        <translation>La réponse du serveur n’a pas été comprise.</translation>
    </message>
    <message>
        <source>The server redirected to an address that cannot be loaded.</source>
        <translation>Le serveur a redirigé vers une adresse qui ne peut pas être chargée.</translation>
    </message>
    <message>
        <source>The server sent no document.</source>
        <translation>Le serveur n’a envoyé aucun document.</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>Le réglage n’a pas pu être enregistré.</translation>
    </message>
    <message>
        <source>The settings folder cannot be made.</source>
        <translation>Le dossier des réglages ne peut pas être créé.</translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>Il y a %Ln remarque sur des notes importées.</numerusform>
            <numerusform>Il y a %Ln remarques sur des notes importées.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no ENEX file to import.</source>
        <translation>Il n’y a aucun fichier ENEX à importer.</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>Le fichier n’est pas autorisé en lecture.</translation>
    </message>
    <message>
        <source>There is no session bus through which %1 could be reached.</source>
        <translation>Il n’y a pas de bus de session par lequel joindre %1.</translation>
    </message>
    <message>
        <source>There were too many redirects.</source>
        <translation>Il y a eu trop de redirections.</translation>
    </message>
    <message>
        <source>They are added at the note's end. A web clip with such a document becomes a note.</source>
        <translation>Elles sont ajoutées à la fin de la note. Une page découpée avec un tel document devient une note.</translation>
    </message>
    <message>
        <source>This is no archived colour.</source>
        <translation>Ce n’est pas une couleur archivée.</translation>
    </message>
    <message>
        <source>Times in ENEX files are in UTC</source>
        <translation>Les heures des fichiers ENEX sont en UTC</translation>
    </message>
    <message>
        <source>To keep all of it, import the file again with the option “Read files of today's Evernote whole” (setting ModernENEX).</source>
        <translation>Pour tout garder, importez de nouveau le fichier avec l’option « Lire en entier les fichiers de l’Evernote actuel » (réglage ModernENEX).</translation>
    </message>
    <message>
        <source>Two keys of a dictionary cannot be told apart.</source>
        <translation>Deux clés d’un dictionnaire sont indiscernables.</translation>
    </message>
    <message>
        <source>Unable to create file wrapper for file at path: %@</source>
        <translation>Impossible de créer un paquet pour le fichier situé à l’emplacement : %@</translation>
    </message>
    <message>
        <source>Unable to create the temporary directory to export files.</source>
        <translation>Impossible de créer le dossier temporaire d’exportation des fichiers.</translation>
    </message>
    <message>
        <source>Unable to find the Evernote application.</source>
        <translation>L’application Evernote est introuvable.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>Utiliser la valeur par défaut</translation>
    </message>
    <message>
        <source>Vupuge</source>
        <translation>Vupuge</translation>
    </message>
    <message>
        <source>Vupuge %1</source>
        <translation>Vupuge %1</translation>
    </message>
    <message>
        <source>Wait until it has finished and try again.</source>
        <translation>Attendez qu’elle soit terminée, puis réessayez.</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>Page web</translation>
    </message>
    <message>
        <source>Where nothing is chosen here, the choices made in Quillery hold.</source>
        <translation>Sans choix ici, ce sont les réglages de Quillery qui valent.</translation>
    </message>
    <message>
        <source>Words are marked by @ or &amp;, and by the characters below. Otherwise every word of a comment without marks counts as a tag.</source>
        <translation>Les mots sont marqués par @ ou &amp; et par les caractères ci-dessous. Sinon, chaque mot d’un commentaire sans marque compte comme étiquette.</translation>
    </message>
    <message>
        <source>Write a detailed log</source>
        <translation>Tenir un journal détaillé</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>Zéro Ko</translation>
    </message>
    <message>
        <source>[Missing Attachment]</source>
        <translation>[Pièce jointe manquante]</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>accepté</translation>
    </message>
    <message>
        <source>bad gateway</source>
        <translation>passerelle incorrecte</translation>
    </message>
    <message>
        <source>bad request</source>
        <translation>requête incorrecte</translation>
    </message>
    <message>
        <source>client error</source>
        <translation>erreur du client</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>conflit</translation>
    </message>
    <message>
        <source>created</source>
        <translation>créé</translation>
    </message>
    <message>
        <source>expectation failed</source>
        <translation>échec de l’attente</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>interdit</translation>
    </message>
    <message>
        <source>found</source>
        <translation>trouvé</translation>
    </message>
    <message>
        <source>gateway timed out</source>
        <translation>passerelle expirée</translation>
    </message>
    <message>
        <source>informational</source>
        <translation>information</translation>
    </message>
    <message>
        <source>internal server error</source>
        <translation>erreur interne du serveur</translation>
    </message>
    <message>
        <source>it has no folder “%1”, which items belong to.</source>
        <translation>il n’a pas de dossier « %1 », auquel des éléments appartiennent.</translation>
    </message>
    <message>
        <source>it holds no entities.</source>
        <translation>il ne contient aucune entité.</translation>
    </message>
    <message>
        <source>its records are not in a dictionary.</source>
        <translation>ses fiches ne sont pas dans un dictionnaire.</translation>
    </message>
    <message>
        <source>length required</source>
        <translation>longueur requise</translation>
    </message>
    <message>
        <source>method not allowed</source>
        <translation>méthode non autorisée</translation>
    </message>
    <message>
        <source>moved permanently</source>
        <translation>déplacé définitivement</translation>
    </message>
    <message>
        <source>no content</source>
        <translation>aucun contenu</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>aucune erreur</translation>
    </message>
    <message>
        <source>no longer exists</source>
        <translation>n’existe plus</translation>
    </message>
    <message>
        <source>none</source>
        <translation>aucune</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>introuvable</translation>
    </message>
    <message>
        <source>not modified</source>
        <translation>non modifié</translation>
    </message>
    <message>
        <source>payment required</source>
        <translation>paiement requis</translation>
    </message>
    <message>
        <source>precondition failed</source>
        <translation>échec de la condition préalable</translation>
    </message>
    <message>
        <source>proxy authentication required</source>
        <translation>authentification du proxy requise</translation>
    </message>
    <message>
        <source>redirected</source>
        <translation>redirigé</translation>
    </message>
    <message>
        <source>request timed out</source>
        <translation>requête expirée</translation>
    </message>
    <message>
        <source>request too large</source>
        <translation>requête trop volumineuse</translation>
    </message>
    <message>
        <source>requested URL too long</source>
        <translation>URL demandée trop longue</translation>
    </message>
    <message>
        <source>requested range not satisfiable</source>
        <translation>plage demandée non satisfaisable</translation>
    </message>
    <message>
        <source>server error</source>
        <translation>erreur du serveur</translation>
    </message>
    <message>
        <source>service unavailable</source>
        <translation>service indisponible</translation>
    </message>
    <message>
        <source>success</source>
        <translation>réussite</translation>
    </message>
    <message>
        <source>too many requests</source>
        <translation>trop de requêtes</translation>
    </message>
    <message>
        <source>unacceptable</source>
        <translation>inacceptable</translation>
    </message>
    <message>
        <source>unauthorized</source>
        <translation>non autorisé</translation>
    </message>
    <message>
        <source>unimplemented</source>
        <translation>non implémenté</translation>
    </message>
    <message>
        <source>unsupported media type</source>
        <translation>type de média non pris en charge</translation>
    </message>
    <message>
        <source>unsupported version</source>
        <translation>version non prise en charge</translation>
    </message>
    <message>
        <source>“%1” cannot be said to %2.</source>
        <translation>« %1 » ne peut pas être transmis à %2.</translation>
    </message>
    <message>
        <source>“%1” cannot be taken twice.</source>
        <translation>« %1 » ne peut pas être pris deux fois.</translation>
    </message>
    <message>
        <source>“%1” could not be imported: %2</source>
        <translation>« %1 » n’a pas pu être importé : %2</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <translation>« %1 » n’a pas pu être lu : %2.</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>« %1 » n’a pas pu être écrit : %2.</translation>
    </message>
    <message>
        <source>“%1” holds no catalogue that this version reads.</source>
        <translation>« %1 » ne contient pas de catalogue lisible par cette version.</translation>
    </message>
    <message>
        <source>“%1” is gone: its files were removed before the import was finished.</source>
        <translation>« %1 » a disparu : ses fichiers ont été supprimés avant la fin de l’importation.</translation>
    </message>
    <message>
        <source>“%1” is not UTF-8 text.</source>
        <translation>« %1 » n’est pas un texte UTF-8.</translation>
    </message>
    <message>
        <source>“%1” is not a folder's record.</source>
        <translation>« %1 » n’est pas la fiche d’un dossier.</translation>
    </message>
    <message>
        <source>“%1” is not an alias.</source>
        <translation>« %1 » n’est pas un alias.</translation>
    </message>
    <message>
        <source>“%1” is not an import manifest.</source>
        <translation>« %1 » n’est pas un manifeste d’importation.</translation>
    </message>
    <message>
        <source>“%1” is not an item's record.</source>
        <translation>« %1 » n’est pas la fiche d’un élément.</translation>
    </message>
    <message>
        <source>“%1” is not the name of a file in “%2”.</source>
        <translation>« %1 » n’est pas le nom d’un fichier de « %2 ».</translation>
    </message>
</context>
</TS>
