<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>À propos de Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>Trouve les morceaux présents plusieurs fois dans un dossier de musique. Tout se passe sur cet ordinateur, et rien n’est jamais supprimé définitivement.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>Étape 1/4&#xa0;: regroupement par titre exact…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>Étape 2/4&#xa0;: analyse des noms de fichiers semblables…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>Étape 3/4&#xa0;: comparaison des artistes et des titres…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>Étape 4/4&#xa0;: comparaison approfondie des morceaux restants…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Déposez un dossier pour y chercher les morceaux en double</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>%Ln fichier en double • %1 • Écoutez avant de supprimer</numerusform>
            <numerusform>%Ln fichiers en double • %1 • Écoutez avant de supprimer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>%Ln fichier en double trouvé • Vérifiez avec le haut-parleur avant de supprimer</numerusform>
            <numerusform>%Ln fichiers en double trouvés • Vérifiez avec le haut-parleur avant de supprimer</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;ko</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1&#xa0;Mo</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;Go</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1&#xa0;To</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1&#xa0;Po</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1&#xa0;Eo</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0&#xa0;ko</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 octet</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n octet</numerusform>
            <numerusform>%n octets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#x202f;%</translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation>de cette étape</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>Vos fichiers restent inchangés</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>Annuler et revenir</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln fichier trouvé</numerusform>
            <numerusform>%Ln fichiers trouvés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>Le fichier n’existe plus</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>Le fichier est illisible (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>Le fichier a été modifié depuis l’analyse</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>Le fichier a disparu ou a été modifié entre-temps</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>L’original de son groupe n’existe plus</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>L’original de son groupe est illisible (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>L’original de son groupe a été modifié depuis l’analyse</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>L’original de son groupe a disparu ou a été modifié entre-temps</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>Le fichier est inaccessible</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>L’original de son groupe a disparu ou a été modifié</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>Le fichier a été modifié au moment de son déplacement</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1&#x202f;; le fichier a donc été remis en place</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1. Le fichier se trouve maintenant à %2&#xa0;: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1.</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>C’est peut-être le même fichier qu’un original, visible aussi sur un autre système de fichiers</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>Il reste à %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>Un autre morceau de ce groupe est exactement le même fichier et disparaîtrait aussi.</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>Un autre morceau de ce groupe avait disparu aussi</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>Mise à la corbeille&#xa0;: %L1 sur %L2</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>Déplacement vers le dossier&#xa0;: %L1 sur %L2</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>Choisir le dossier où déplacer les fichiers en double</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Choisir le dossier</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>Impossible de créer le dossier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>Chemin du dossier copié dans le presse-papiers</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>Impossible de supprimer le fichier&#xa0;: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>Mis à la corbeille&#xa0;: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>Remise en place&#xa0;: %L1 sur %L2</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>Annulé&#xa0;: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>Déplacer vers un dossier</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>Progression</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#x202f;%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Arrêt…</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>Retour à la liste</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Réessayer</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>Aucun autre doublon trouvé</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>%Ln autre doublon trouvé</numerusform>
            <numerusform>%Ln autres doublons trouvés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>Mettre %Ln doublon (%1) à la corbeille</numerusform>
            <numerusform>Mettre %Ln doublons (%1) à la corbeille</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>Déplacer %Ln doublon (%1) vers un dossier</numerusform>
            <numerusform>Déplacer %Ln doublons (%1) vers un dossier</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>Aucun doublon à déplacer</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>%Ln fichier mis à la corbeille</numerusform>
            <numerusform>%Ln fichiers mis à la corbeille</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>%Ln fichier déplacé vers le dossier</numerusform>
            <numerusform>%Ln fichiers déplacés vers le dossier</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>%Ln fichier déplacé</numerusform>
            <numerusform>%Ln fichiers déplacés</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln échec</numerusform>
            <numerusform>%Ln échecs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln non déplacé</numerusform>
            <numerusform>%Ln non déplacés</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>%1 économisés</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>Aucun fichier n’a été déplacé</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln fichier mis à la corbeille</numerusform>
            <numerusform>%Ln fichiers mis à la corbeille</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln fichier déplacé vers un dossier</numerusform>
            <numerusform>%Ln fichiers déplacés vers un dossier</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>Il reste %Ln morceau</numerusform>
            <numerusform>Il reste %Ln morceaux</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>Le nouveau disque n’a pas pu conserver tous les attributs de %Ln morceau&#xa0;: %1</numerusform>
            <numerusform>Le nouveau disque n’a pas pu conserver tous les attributs de %Ln morceaux&#xa0;: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln fichier remis en place</numerusform>
            <numerusform>%Ln fichiers remis en place</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln échec</numerusform>
            <numerusform>%Ln échecs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln non remis en place</numerusform>
            <numerusform>%Ln non remis en place</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>%Ln fichier n’a pas pu être remis en place&#xa0;:</numerusform>
            <numerusform>%Ln fichiers n’ont pas pu être remis en place&#xa0;:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>et %Ln autre</numerusform>
            <numerusform>et %Ln autres</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>Encore quelques secondes</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>Encore %Ln seconde environ</numerusform>
            <numerusform>Encore %Ln secondes environ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>Encore %Ln minute environ</numerusform>
            <numerusform>Encore %Ln minutes environ</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>Encore %Ln heure environ</numerusform>
            <numerusform>Encore %Ln heures environ</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: sonavo [--new-window] [PATH...]
       sonavo --report [--further] [--json | --csv] PATH...

Finds the songs that a music folder holds more than once and helps to remove them. Opens
a window, in which the files and folders PATH... are scanned at once. If the window is
open already, it comes to the front and scans them.

  --new-window   open a window although there is one
  --report       print the duplicate songs among PATH... instead, changing nothing
  --further      compare every song with every other, in every script: finds more
  --json         print them as JSON
  --csv          print them as comma-separated values, for spreadsheets
  -h, --help     print this text
  -v, --version  print the version

Exit status: 0 when the window was closed, the open one took over, or a report was
printed, 1 when there was nothing to report, no window could be opened, or the open one
is busy, 2 for unusable arguments, 130 after Ctrl-C during a report.
</source>
        <translation>Utilisation : sonavo [--new-window] [PATH...]
              sonavo --report [--further] [--json | --csv] PATH...

Trouve les morceaux présents plusieurs fois dans un dossier de musique et aide à les
retirer. Ouvre une fenêtre où les fichiers et dossiers PATH... sont analysés aussitôt. Si la
fenêtre est déjà ouverte, elle passe au premier plan et les analyse.

  --new-window   ouvrir une fenêtre même s’il y en a déjà une
  --report       afficher plutôt les morceaux en double parmi PATH..., sans rien changer
  --further      comparer chaque morceau à tous les autres, dans toutes les écritures
  --json         les afficher en JSON
  --csv          les afficher séparés par des virgules, pour un tableur
  -h, --help     afficher ce texte
  -v, --version  afficher la version

Code de sortie : 0 si la fenêtre a été fermée, si celle déjà ouverte a pris le relais ou si
un rapport a été affiché ; 1 s’il n’y avait rien à rapporter, si aucune fenêtre n’a pu être
ouverte ou si celle déjà ouverte est occupée ; 2 pour des arguments inutilisables ;
130 après Ctrl+C pendant un rapport.
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>ignoré, son nom n’est pas en UTF-8 valide : %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Option « %1 » inconnue.</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>--%1 demande --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report n’ouvre pas de fenêtre</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json et --csv s’excluent mutuellement</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>fichier ou dossier introuvable : %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>--report demande au moins un PATH</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>Essayez « sonavo --help ».</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>Glissez-déposez un dossier de musique ici</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Déposez un dossier pour y chercher les morceaux en double</translation>
    </message>
</context>
<context>
    <name>DuplicateGroupView</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>expanded</source>
        <comment>a group of songs</comment>
        <translation>déplié</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>replié</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>Nettoyer ce groupe</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>Morceaux en double</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>Aucun groupe ne correspond au filtre</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>%1 kbit/s</source>
        <translation>%1 kbit/s</translation>
    </message>
    <message>
        <source>lossless</source>
        <comment>the kind of a sound file</comment>
        <translation>sans perte</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 octets)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>Modifié le %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>Aucun fichier n’a été copié</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>Impossible d’ouvrir le dossier</translation>
    </message>
</context>
<context>
    <name>FailureList</name>
    <message>
        <source>, </source>
        <comment>between the parts of a description</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>Afficher</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>Ajouter des morceaux</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>Morceaux (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>Enregistrer le rapport</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>Feuille de calcul (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>Il n’est pas certain que le fichier ait été déplacé (%1). Cherchez-le à %2 et à %3.</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>Il n’est pas certain que le fichier ait été déplacé (%1). Cherchez-le à %2 et à %3&#x202f;; ce qui a été mis à sa place est à %4.</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>Le disque ne peut pas stocker un fichier de ce nom</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>Ordre trouvé</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>Espace libéré</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>Filtrer les noms et dossiers</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>Afficher tous les groupes</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>Tri&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>Revenir au premier résultat</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Chercher plus de doublons</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>Affiche les doublons trouvés par l’analyse</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>Compare chaque morceau à tous les autres, dans toutes les écritures</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>Nettoyer ce groupe</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>Mettre les doublons à la corbeille</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>Déplacer les doublons…</translation>
    </message>
</context>
<context>
    <name>Importer</name>
    <message>
        <source>Cannot import more than %1 songs in a single session.

For large music libraries, we recommend:
• Processing your library in batches by genre or folder
• Using 1000-2000 songs per session for best performance
• Clearing previous results before starting a new batch

This helps ensure accurate duplicate detection and optimal performance.</source>
        <translation>Impossible d’importer plus de %L1 morceaux en une seule session.

Pour les grandes bibliothèques musicales, il est recommandé de&#xa0;:
• traiter la bibliothèque par lots, selon le genre ou le dossier
• se limiter à 1&#x202f;000 à 2&#x202f;000 morceaux par session pour de meilleures performances
• effacer les résultats précédents avant de commencer un nouveau lot

La détection des doublons reste ainsi précise et rapide.</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>Impossible d’importer plus de %L1 morceaux.
Veuillez choisir un dossier plus petit.</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo est occupé. Rouvrez «&#xa0;%1&#xa0;» ensuite.</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo est occupé. Rouvrez cet élément (%Ln) ensuite.</numerusform>
            <numerusform>Sonavo est occupé. Rouvrez ces %Ln éléments ensuite.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>L’analyse de «&#xa0;%1&#xa0;» remplace cette liste, qui contient encore %Ln doublon.</numerusform>
            <numerusform>L’analyse de «&#xa0;%1&#xa0;» remplace cette liste, qui contient encore %Ln doublons.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>L’analyse de ces %L1 éléments remplace cette liste, qui contient encore %Ln doublon.</numerusform>
            <numerusform>L’analyse de ces %L1 éléments remplace cette liste, qui contient encore %Ln doublons.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>Analyser les %L1</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>Sur %L1 éléments déposés, seul «&#xa0;%2&#xa0;» est analysé</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Sonavo</source>
        <translation>Sonavo</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <comment>a menu</comment>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Revenir au premier résultat</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>É&amp;dition</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Garder les copies sans perte</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>Fe&amp;nêtre</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>À propos de Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>Actions</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Ajouter un morceau</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>Tout nettoyer</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>Déplacer les doublons</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%Ln doublon</numerusform>
            <numerusform>%Ln doublons</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>%Ln au total</numerusform>
            <numerusform>%Ln au total</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Vider la liste</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>Parfait&#x202f;! Aucun doublon trouvé</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>Votre bibliothèque musicale est propre et bien rangée</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>%Ln morceau analysé</numerusform>
            <numerusform>%Ln morceaux analysés</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>Tous uniques</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>Notification</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation>Lecture de %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Arrêter</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>Le disque de %1 est absent</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>Le fichier situé à %1 n’est pas celui qui y a été déplacé</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>Le fichier n’est plus ni à %1 ni à %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>Remplacer la liste&#x202f;?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>Analyser</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>Enregistrement du rapport…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Rapport enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>Le rapport n’a pas été enregistré</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>Impossible d’enregistrer le rapport&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>Modification des groupes…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>Aucun original n’a changé</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>Original changé dans %Ln groupe</numerusform>
            <numerusform>Original changé dans %Ln groupes</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Chercher plus de doublons</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>Comparaison de chaque morceau à tous les autres…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Revenir au premier résultat</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>Retour au premier résultat</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Garder celui-ci</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Garder les copies de ce dossier</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Garder les copies sans perte</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Pas un doublon</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>Aucun groupe n’a changé</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>Pas un doublon&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>Démarrage de l’analyse…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>Étape 1/4&#xa0;: recherche des fichiers audio…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>Aucun fichier audio trouvé dans le dossier choisi.</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>Étape 1/4&#xa0;: traitement de %Ln fichier audio…</numerusform>
            <numerusform>Étape 1/4&#xa0;: traitement de %Ln fichiers audio…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>Étape 1/4&#xa0;: traitement des fichiers audio (%L1 sur %L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>Étape 2/4&#xa0;: préparation de la recherche des doublons…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>Aucun fichier audio pris en charge trouvé.</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>Étape 2/4&#xa0;: analyse des doublons…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>Ligne précédente</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>Ligne suivante</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>Première ligne</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>Dernière ligne</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>Masquer les morceaux du groupe</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>Afficher les morceaux du groupe</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>Sur un groupe&#xa0;: masquer ou afficher ses morceaux</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>Écouter ou arrêter</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>Écouter à partir de la même seconde</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Garder celui-ci</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>Menu du morceau ou du groupe</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Ajouter un morceau</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>Analyser les fichiers copiés</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Enregistrer le rapport…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Vider la liste</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>Filtrer les noms et dossiers</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Chercher plus de doublons</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>Ouvrir le menu</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Raccourcis clavier</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>Afficher la fenêtre principale</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quitter</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Contrôle suivant</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>Fermer ce qui est au premier plan ou arrêter un nettoyage</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>Dans la liste des résultats</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>Partout</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>Grande bibliothèque détectée</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>L’ajout d’un grand nombre de morceaux peut nuire aux performances.</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>Recommandations&#xa0;:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>Performances optimales&#xa0;: jusqu’à 5&#x202f;000 morceaux</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>Bonnes performances&#xa0;: de 5&#x202f;000 à 10&#x202f;000 morceaux</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>Maximum par session&#xa0;: 500&#x202f;000 morceaux</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>Ajouter quand même</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Arrêter</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>Écouter</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Garder les copies de ce dossier</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Garder les copies sans perte</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>Pas un doublon</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copier le chemin</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>Arrêter l’écoute</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>Cliquez pour écouter et vérifier ce morceau</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>Supprimer ce morceau</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>Met %1 à la corbeille</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>impossible d’ouvrir une fenêtre sur cet affichage&#x202f;; --report n’en a pas besoin</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>la fenêtre est occupée et ne peut rien analyser avant la fin</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>aucun affichage où ouvrir une fenêtre&#x202f;; --report n’en a pas besoin</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Durée</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Taille</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999,99&#xa0;Go</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>ORIGINAL</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>DOUBLON</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>Nom du fichier</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>La corbeille de ce disque est inutilisable&#xa0;: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>Elle se trouve sur un autre système de fichiers</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>Ce n’est pas un fichier</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>Annuler&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>Bienvenue dans Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>Trouvez et supprimez les morceaux en double de votre bibliothèque musicale</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Parcourir</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>Passer au thème clair</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>Passer au thème sombre</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>%Ln fichier n’a pas pu être déplacé</numerusform>
            <numerusform>%Ln fichiers n’ont pas pu être déplacés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::DuplicateListModel</name>
    <message>
        <source>Original</source>
        <comment>a song</comment>
        <translation>Original</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <comment>a song</comment>
        <translation>Doublon</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>Groupe de %Ln morceau</numerusform>
            <numerusform>Groupe de %Ln morceaux</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>Libère %1</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>Trouvé seulement en comparant chaque morceau à tous les autres. Écoutez-le avant de le supprimer.</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>Le filtre masque %Ln doublon</numerusform>
            <numerusform>Le filtre masque %Ln doublons</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>Aucun doublon trouvé</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>%Ln fichier en double trouvé</numerusform>
            <numerusform>%Ln fichiers en double trouvés</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>Afficher</translation>
    </message>
</context>
</TS>
