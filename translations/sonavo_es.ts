<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Sonavo</source>
        <translation>Acerca de Sonavo</translation>
    </message>
    <message>
        <source>Sonavo %1</source>
        <translation>Sonavo %1</translation>
    </message>
    <message>
        <source>Finds the songs that a music folder holds more than once. Everything happens on this computer, and nothing is ever deleted outright.</source>
        <translation>Encuentra las canciones que una carpeta de música contiene más de una vez. Todo ocurre en este equipo y nunca se elimina nada definitivamente.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>Analysis</name>
    <message>
        <source>Step 1/4: Grouping by exact title...</source>
        <translation>Paso 1/4: agrupando por título exacto…</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing filename similarities...</source>
        <translation>Paso 2/4: analizando nombres de archivo parecidos…</translation>
    </message>
    <message>
        <source>Step 3/4: Comparing artist and title...</source>
        <translation>Paso 3/4: comparando artista y título…</translation>
    </message>
    <message>
        <source>Step 4/4: Deep comparison of remaining songs...</source>
        <translation>Paso 4/4: comparando a fondo las canciones restantes…</translation>
    </message>
</context>
<context>
    <name>BottomInfoBar</name>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Suelte una carpeta para buscar canciones duplicadas</translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • %1 • Use speaker icon to verify before deleting</source>
        <comment>%1 says how many more were found</comment>
        <translation>
            <numerusform>%Ln archivo duplicado • %1 • Escuche antes de eliminar</numerusform>
            <numerusform>%Ln archivos duplicados • %1 • Escuche antes de eliminar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Found %n duplicate files • Use speaker icon to verify before deleting</source>
        <translation>
            <numerusform>%Ln archivo duplicado encontrado • Compruebe con el altavoz antes de eliminar</numerusform>
            <numerusform>%Ln archivos duplicados encontrados • Compruebe con el altavoz antes de eliminar</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ByteCount</name>
    <message>
        <source>%1 KB</source>
        <translation>%1&#xa0;kB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1&#xa0;MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1&#xa0;GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1&#xa0;TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1&#xa0;PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1&#xa0;EB</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0&#xa0;kB</translation>
    </message>
    <message>
        <source>1 byte</source>
        <translation>1 byte</translation>
    </message>
    <message numerus="yes">
        <source>%n bytes</source>
        <comment>2 to 999</comment>
        <translation>
            <numerusform>%n byte</numerusform>
            <numerusform>%n bytes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CircularProgressView</name>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>of this step</source>
        <comment>follows a percentage</comment>
        <translation>de este paso</translation>
    </message>
    <message>
        <source>Your files stay as they are</source>
        <translation>Sus archivos no se modifican</translation>
    </message>
    <message>
        <source>Cancel &amp; Go Back</source>
        <translation>Cancelar y volver</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files found</source>
        <translation>
            <numerusform>%Ln archivo encontrado</numerusform>
            <numerusform>%Ln archivos encontrados</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CleanUp</name>
    <message>
        <source>The file does not exist any more</source>
        <translation>El archivo ya no existe</translation>
    </message>
    <message>
        <source>The file cannot be read (%1)</source>
        <translation>No se puede leer el archivo (%1)</translation>
    </message>
    <message>
        <source>The file has been changed since it was scanned</source>
        <translation>El archivo ha cambiado desde el análisis</translation>
    </message>
    <message>
        <source>The file is gone or has been changed meanwhile</source>
        <translation>El archivo ha desaparecido o ha cambiado entretanto</translation>
    </message>
    <message>
        <source>The original of its group does not exist any more</source>
        <translation>El original de su grupo ya no existe</translation>
    </message>
    <message>
        <source>The original of its group cannot be read (%1)</source>
        <translation>No se puede leer el original de su grupo (%1)</translation>
    </message>
    <message>
        <source>The original of its group has been changed since it was scanned</source>
        <translation>El original de su grupo ha cambiado desde el análisis</translation>
    </message>
    <message>
        <source>The original of its group is gone or has been changed meanwhile</source>
        <translation>El original de su grupo ha desaparecido o ha cambiado entretanto</translation>
    </message>
    <message>
        <source>The file cannot be reached</source>
        <translation>No se puede acceder al archivo</translation>
    </message>
    <message>
        <source>The original of its group is gone or was changed</source>
        <translation>El original de su grupo ha desaparecido o ha cambiado</translation>
    </message>
    <message>
        <source>The file was changed at the moment when it was moved</source>
        <translation>El archivo cambió en el momento de moverlo</translation>
    </message>
    <message>
        <source>%1, so the file was put back</source>
        <comment>%1 says what has happened, without a full stop</comment>
        <translation>%1; por eso el archivo se ha devuelto a su lugar</translation>
    </message>
    <message>
        <source>%1. The file is at %2 now: %3</source>
        <comment>what has happened, a path, and why the file could not be put back</comment>
        <translation>%1. El archivo está ahora en %2: %3</translation>
    </message>
    <message>
        <source>%1.</source>
        <comment>a sentence and its full stop</comment>
        <translation>%1.</translation>
    </message>
    <message>
        <source>It may be the same file as an original, which another file system shows as well</source>
        <translation>Puede ser el mismo archivo que un original, visible también en otro sistema de archivos</translation>
    </message>
    <message>
        <source>It stays at %1: %2</source>
        <comment>a path and the reason</comment>
        <translation>Se queda en %1: %2</translation>
    </message>
    <message>
        <source>Another song of this group is the very same file and would be gone as well.</source>
        <translation>Otra canción de este grupo es exactamente el mismo archivo y también desaparecería.</translation>
    </message>
    <message>
        <source>Another song of this group was gone as well</source>
        <translation>Otra canción de este grupo también había desaparecido</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the Trash</source>
        <comment>files</comment>
        <translation>Moviendo %L1 de %L2 a la papelera</translation>
    </message>
    <message>
        <source>Moving %L1 of %L2 to the folder</source>
        <comment>files</comment>
        <translation>Moviendo %L1 de %L2 a la carpeta</translation>
    </message>
    <message>
        <source>Select a folder to move duplicate files to</source>
        <translation>Seleccione una carpeta para los archivos duplicados</translation>
    </message>
    <message>
        <source>Select Folder</source>
        <translation>Seleccionar carpeta</translation>
    </message>
    <message>
        <source>Failed to create folder: %1</source>
        <translation>No se pudo crear la carpeta: %1</translation>
    </message>
    <message>
        <source>Folder path copied to clipboard</source>
        <translation>Ruta de la carpeta copiada al portapapeles</translation>
    </message>
    <message>
        <source>Could not delete file: %1</source>
        <translation>No se pudo eliminar el archivo: %1</translation>
    </message>
    <message>
        <source>Moved to Trash: %1</source>
        <translation>Movido a la papelera: %1</translation>
    </message>
    <message>
        <source>Putting back %L1 of %L2</source>
        <comment>files</comment>
        <translation>Devolviendo %L1 de %L2</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <comment>the name of a step, such as Keep This One</comment>
        <translation>Deshecho: %1</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <comment>the name of a step</comment>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Move to Folder</source>
        <comment>the name of a step</comment>
        <translation>Mover a una carpeta</translation>
    </message>
</context>
<context>
    <name>CleanUpProgressView</name>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>%1%</source>
        <comment>a percentage</comment>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Stopping…</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Deteniendo…</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>a clean-up, an undo or a search</comment>
        <translation>Detener</translation>
    </message>
</context>
<context>
    <name>CleanUpSummaryView</name>
    <message>
        <source>Back to List</source>
        <translation>Volver a la lista</translation>
    </message>
    <message>
        <source>Try Again</source>
        <translation>Reintentar</translation>
    </message>
</context>
<context>
    <name>CleanUpText</name>
    <message>
        <source>No more duplicates found</source>
        <translation>No se encontraron más duplicados</translation>
    </message>
    <message numerus="yes">
        <source>%Ln more duplicates found</source>
        <translation>
            <numerusform>%Ln duplicado más encontrado</numerusform>
            <numerusform>%Ln duplicados más encontrados</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to the Trash</source>
        <translation>
            <numerusform>Mover %Ln duplicado (%1) a la papelera</numerusform>
            <numerusform>Mover %Ln duplicados (%1) a la papelera</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %Ln duplicates (%1) to a folder</source>
        <translation>
            <numerusform>Mover %Ln duplicado (%1) a una carpeta</numerusform>
            <numerusform>Mover %Ln duplicados (%1) a una carpeta</numerusform>
        </translation>
    </message>
    <message>
        <source>No duplicates to move</source>
        <translation>No hay duplicados que mover</translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to Trash</source>
        <translation>
            <numerusform>%Ln archivo movido a la papelera</numerusform>
            <numerusform>%Ln archivos movidos a la papelera</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files to folder</source>
        <translation>
            <numerusform>%Ln archivo movido a la carpeta</numerusform>
            <numerusform>%Ln archivos movidos a la carpeta</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Moved %n files</source>
        <translation>
            <numerusform>%Ln archivo movido</numerusform>
            <numerusform>%Ln archivos movidos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln fallido</numerusform>
            <numerusform>%Ln fallidos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not moved</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln sin mover</numerusform>
            <numerusform>%Ln sin mover</numerusform>
        </translation>
    </message>
    <message>
        <source>Saved %1</source>
        <extracomment>%1 is a size, as in &quot;Saved 84.3 MB&quot;</extracomment>
        <translation>%1 ahorrados</translation>
    </message>
    <message>
        <source>No files were moved</source>
        <translation>No se movió ningún archivo</translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to the Trash</source>
        <translation>
            <numerusform>%Ln archivo movido a la papelera</numerusform>
            <numerusform>%Ln archivos movidos a la papelera</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files moved to a folder</source>
        <translation>
            <numerusform>%Ln archivo movido a una carpeta</numerusform>
            <numerusform>%Ln archivos movidos a una carpeta</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs remain</source>
        <comment>in the list</comment>
        <translation>
            <numerusform>Queda %Ln canción</numerusform>
            <numerusform>Quedan %Ln canciones</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The new disk could not store all attributes of %Ln songs: %1</source>
        <extracomment>%1 lists names of extended attributes of the file system</extracomment>
        <translation>
            <numerusform>El disco nuevo no pudo guardar todos los atributos de %Ln canción: %1</numerusform>
            <numerusform>El disco nuevo no pudo guardar todos los atributos de %Ln canciones: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files put back</source>
        <translation>
            <numerusform>%Ln archivo devuelto a su lugar</numerusform>
            <numerusform>%Ln archivos devueltos a su lugar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln failed</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln fallido</numerusform>
            <numerusform>%Ln fallidos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln not put back</source>
        <comment>files</comment>
        <translation>
            <numerusform>%Ln sin devolver</numerusform>
            <numerusform>%Ln sin devolver</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln files could not be put back:</source>
        <comment>a list follows</comment>
        <translation>
            <numerusform>No se pudo devolver %Ln archivo a su lugar:</numerusform>
            <numerusform>No se pudieron devolver %Ln archivos a su lugar:</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %Ln more</source>
        <comment>the end of a list of files</comment>
        <translation>
            <numerusform>y %Ln más</numerusform>
            <numerusform>y %Ln más</numerusform>
        </translation>
    </message>
    <message>
        <source>A few seconds left</source>
        <translation>Quedan unos segundos</translation>
    </message>
    <message numerus="yes">
        <source>About %Ln seconds left</source>
        <translation>
            <numerusform>Queda %Ln segundo aproximadamente</numerusform>
            <numerusform>Quedan unos %Ln segundos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln minutes left</source>
        <translation>
            <numerusform>Queda %Ln minuto aproximadamente</numerusform>
            <numerusform>Quedan unos %Ln minutos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>About %Ln hours left</source>
        <translation>
            <numerusform>Queda %Ln hora aproximadamente</numerusform>
            <numerusform>Quedan unas %Ln horas</numerusform>
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
        <translation>Uso: sonavo [--new-window] [PATH...]
     sonavo --report [--further] [--json | --csv] PATH...

Encuentra las canciones que una carpeta de música contiene más de una vez y ayuda a
quitarlas. Abre una ventana en la que se analizan enseguida los archivos y carpetas PATH...
Si la ventana ya está abierta, pasa al frente y los analiza.

  --new-window   abrir una ventana aunque ya haya una
  --report       mostrar en su lugar las canciones duplicadas entre PATH..., sin cambiar nada
  --further      comparar cada canción con todas las demás, en toda escritura: encuentra más
  --json         mostrarlas como JSON
  --csv          mostrarlas como valores separados por comas, para hojas de cálculo
  -h, --help     mostrar este texto
  -v, --version  mostrar la versión

Estado de salida: 0 si se cerró la ventana, se encargó la que estaba abierta o se mostró un
informe; 1 si no había nada de que informar, no se pudo abrir ninguna ventana o la abierta
está ocupada; 2 si los argumentos no son utilizables; 130 tras Ctrl+C durante un
informe.
</translation>
    </message>
    <message>
        <source>skipped, its name is not valid UTF-8: %1</source>
        <translation>omitido, su nombre no es UTF-8 válido: %1</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Opción «%1» desconocida.</translation>
    </message>
    <message>
        <source>--%1 needs --report</source>
        <translation>--%1 necesita --report</translation>
    </message>
    <message>
        <source>--report opens no window</source>
        <translation>--report no abre ninguna ventana</translation>
    </message>
    <message>
        <source>--json and --csv exclude each other</source>
        <translation>--json y --csv se excluyen entre sí</translation>
    </message>
    <message>
        <source>no such file or folder: %1</source>
        <translation>no existe el archivo o la carpeta: %1</translation>
    </message>
    <message>
        <source>--report needs at least one PATH</source>
        <translation>--report necesita al menos un PATH</translation>
    </message>
    <message>
        <source>Try &apos;sonavo --help&apos;.</source>
        <translation>Pruebe «sonavo --help».</translation>
    </message>
</context>
<context>
    <name>DropZone</name>
    <message>
        <source>Drag &amp; Drop Music Folder Here</source>
        <translation>Arrastre y suelte aquí la carpeta de música</translation>
    </message>
    <message>
        <source>Drop a folder to scan for duplicate songs</source>
        <translation>Suelte una carpeta para buscar canciones duplicadas</translation>
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
        <translation>desplegado</translation>
    </message>
    <message>
        <source>collapsed</source>
        <comment>a group of songs</comment>
        <translation>plegado</translation>
    </message>
    <message>
        <source>Clean Up This Group</source>
        <translation>Limpiar este grupo</translation>
    </message>
</context>
<context>
    <name>DuplicateList</name>
    <message>
        <source>Duplicate songs</source>
        <translation>Canciones duplicadas</translation>
    </message>
    <message>
        <source>No group matches the filter</source>
        <translation>Ningún grupo coincide con el filtro</translation>
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
        <translation>sin pérdida</translation>
    </message>
    <message>
        <source>%1 (%L2 bytes)</source>
        <comment>a size in short, and in full</comment>
        <translation>%1 (%L2 bytes)</translation>
    </message>
    <message>
        <source>Changed %1</source>
        <comment>%1 is when a file was changed</comment>
        <translation>Modificado: %1</translation>
    </message>
</context>
<context>
    <name>DuplicateViewModel</name>
    <message>
        <source>No files have been copied</source>
        <translation>No se ha copiado ningún archivo</translation>
    </message>
    <message>
        <source>The folder could not be opened</source>
        <translation>No se pudo abrir la carpeta</translation>
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
        <translation>Mostrar en la carpeta</translation>
    </message>
</context>
<context>
    <name>FailureNotice</name>
    <message>
        <source>Show</source>
        <comment>the files that could not be moved</comment>
        <translation>Mostrar</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>Add Songs</source>
        <comment>the title of a dialog</comment>
        <translation>Añadir canciones</translation>
    </message>
    <message>
        <source>Songs (*.%1)</source>
        <comment>a kind of files; %1 lists their extensions</comment>
        <translation>Canciones (*.%1)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <comment>the title of a dialog</comment>
        <translation>Guardar informe</translation>
    </message>
    <message>
        <source>Spreadsheet (*.csv)</source>
        <translation>Hoja de cálculo (*.csv)</translation>
    </message>
</context>
<context>
    <name>FileMove</name>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3.</source>
        <comment>an error and two paths</comment>
        <translation>No es seguro que el archivo se haya movido (%1). Búsquelo en %2 y en %3.</translation>
    </message>
    <message>
        <source>It is not certain that the file was moved (%1). Look for it at %2 and at %3, and for what was put in its place at %4.</source>
        <comment>an error and three paths</comment>
        <translation>No es seguro que el archivo se haya movido (%1). Búsquelo en %2 y en %3, y lo que se puso en su lugar, en %4.</translation>
    </message>
    <message>
        <source>The disk cannot store a file of this name</source>
        <translation>El disco no puede guardar un archivo con este nombre</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>As Found</source>
        <comment>an order of groups</comment>
        <translation>Como se encontraron</translation>
    </message>
    <message>
        <source>Space Freed</source>
        <comment>an order of groups</comment>
        <translation>Espacio liberado</translation>
    </message>
    <message>
        <source>Name</source>
        <comment>an order of groups</comment>
        <translation>Nombre</translation>
    </message>
    <message>
        <source>Folder</source>
        <comment>an order of groups</comment>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Filter names and folders</source>
        <translation>Filtrar nombres y carpetas</translation>
    </message>
    <message>
        <source>Show all groups</source>
        <translation>Mostrar todos los grupos</translation>
    </message>
    <message>
        <source>Sort: %1</source>
        <translation>Orden: %1</translation>
    </message>
</context>
<context>
    <name>FindMoreButton</name>
    <message>
        <source>Return to First Result</source>
        <translation>Volver al primer resultado</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Buscar más duplicados</translation>
    </message>
    <message>
        <source>Shows the duplicates that the scan has found</source>
        <translation>Muestra los duplicados que encontró el análisis</translation>
    </message>
    <message>
        <source>Compares every song with every other, in every script</source>
        <translation>Compara cada canción con todas las demás, en cualquier escritura</translation>
    </message>
</context>
<context>
    <name>GroupMenu</name>
    <message>
        <source>Clean Up This Group</source>
        <translation>Limpiar este grupo</translation>
    </message>
    <message>
        <source>Move Duplicates to Trash</source>
        <translation>Mover duplicados a la papelera</translation>
    </message>
    <message>
        <source>Move Duplicates to Folder…</source>
        <translation>Mover duplicados a una carpeta…</translation>
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
        <translation>No se pueden importar más de %L1 canciones en una sola sesión.

Para bibliotecas de música grandes se recomienda:
• Procesar la biblioteca por lotes, según el género o la carpeta
• Usar entre 1000 y 2000 canciones por sesión para un mejor rendimiento
• Borrar los resultados anteriores antes de empezar un lote nuevo

Así la detección de duplicados será precisa y rápida.</translation>
    </message>
    <message>
        <source>Cannot import more than %1 songs.
Please select a smaller folder.</source>
        <translation>No se pueden importar más de %L1 canciones.
Seleccione una carpeta más pequeña.</translation>
    </message>
    <message>
        <source>Sonavo is busy. Open “%1” again when that is done.</source>
        <translation>Sonavo está ocupado. Abra «%1» de nuevo cuando termine.</translation>
    </message>
    <message numerus="yes">
        <source>Sonavo is busy. Open these %Ln items again when that is done.</source>
        <translation>
            <numerusform>Sonavo está ocupado. Abra este elemento (%Ln) de nuevo cuando termine.</numerusform>
            <numerusform>Sonavo está ocupado. Abra estos %Ln elementos de nuevo cuando termine.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning “%1” replaces this list, which still has %Ln duplicates.</source>
        <translation>
            <numerusform>Al analizar «%1» se sustituirá esta lista, que aún tiene %Ln duplicado.</numerusform>
            <numerusform>Al analizar «%1» se sustituirá esta lista, que aún tiene %Ln duplicados.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Scanning these %L1 items replaces this list, which still has %Ln duplicates.</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>
            <numerusform>Al analizar estos %L1 elementos se sustituirá esta lista, que aún tiene %Ln duplicado.</numerusform>
            <numerusform>Al analizar estos %L1 elementos se sustituirá esta lista, que aún tiene %Ln duplicados.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scan All %L1</source>
        <extracomment>Button; the number of files and folders that were dropped, at least 2</extracomment>
        <translation>Analizar los %L1</translation>
    </message>
    <message>
        <source>Of %L1 items that were dropped, only “%2” is scanned</source>
        <extracomment>%L1 is the number of files and folders, at least 2</extracomment>
        <translation>De %L1 elementos soltados, solo se analiza «%2»</translation>
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
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Volver al primer resultado</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <comment>a menu</comment>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Conservar copias sin pérdida</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <comment>a menu</comment>
        <translation>&amp;Ventana</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <comment>a menu</comment>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>About Sonavo</source>
        <translation>Acerca de Sonavo</translation>
    </message>
</context>
<context>
    <name>ModernToolbar</name>
    <message>
        <source>Actions</source>
        <translation>Acciones</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Añadir canción</translation>
    </message>
    <message>
        <source>Cleanup All</source>
        <translation>Limpiar todo</translation>
    </message>
    <message>
        <source>Move Duplicates</source>
        <translation>Mover duplicados</translation>
    </message>
    <message numerus="yes">
        <source>%n duplicates</source>
        <translation>
            <numerusform>%Ln duplicado</numerusform>
            <numerusform>%Ln duplicados</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n total</source>
        <comment>songs</comment>
        <translation>
            <numerusform>%Ln en total</numerusform>
            <numerusform>%Ln en total</numerusform>
        </translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Vaciar la lista</translation>
    </message>
</context>
<context>
    <name>NoDuplicatesFoundView</name>
    <message>
        <source>Perfect! No Duplicates Found</source>
        <translation>¡Perfecto! No hay duplicados</translation>
    </message>
    <message>
        <source>Your music library is clean and organized</source>
        <translation>Su biblioteca de música está limpia y ordenada</translation>
    </message>
    <message numerus="yes">
        <source>%n songs scanned</source>
        <translation>
            <numerusform>%Ln canción analizada</numerusform>
            <numerusform>%Ln canciones analizadas</numerusform>
        </translation>
    </message>
    <message>
        <source>All unique</source>
        <comment>songs</comment>
        <translation>Todas únicas</translation>
    </message>
</context>
<context>
    <name>NotificationAlert</name>
    <message>
        <source>Notification</source>
        <translation>Notificación</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Playing %1</source>
        <comment>%1 is the name of a song</comment>
        <translation>Reproduciendo %1</translation>
    </message>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Detener</translation>
    </message>
</context>
<context>
    <name>PutBack</name>
    <message>
        <source>The disk of %1 is not there</source>
        <comment>%1 is a path</comment>
        <translation>El disco de %1 no está</translation>
    </message>
    <message>
        <source>The file at %1 is not the one that was moved there</source>
        <comment>%1 is a path</comment>
        <translation>El archivo que está en %1 no es el que se movió allí</translation>
    </message>
    <message>
        <source>The file is neither at %1 nor at %2 any more</source>
        <comment>two paths</comment>
        <translation>El archivo ya no está ni en %1 ni en %2</translation>
    </message>
</context>
<context>
    <name>ReplaceResultSheet</name>
    <message>
        <source>Replace the List?</source>
        <translation>¿Sustituir la lista?</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Scan</source>
        <comment>a button that starts a scan</comment>
        <translation>Analizar</translation>
    </message>
</context>
<context>
    <name>ReportSaver</name>
    <message>
        <source>Saving the report...</source>
        <translation>Guardando el informe…</translation>
    </message>
    <message>
        <source>Report saved: %1</source>
        <translation>Informe guardado: %1</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>The report was not saved</source>
        <translation>El informe no se guardó</translation>
    </message>
    <message>
        <source>The report could not be saved: %1</source>
        <translation>No se pudo guardar el informe: %1</translation>
    </message>
</context>
<context>
    <name>Review</name>
    <message>
        <source>Changing the groups...</source>
        <translation>Cambiando los grupos…</translation>
    </message>
    <message>
        <source>No original has changed</source>
        <translation>No ha cambiado ningún original</translation>
    </message>
    <message numerus="yes">
        <source>Changed the original in %Ln groups</source>
        <translation>
            <numerusform>Original cambiado en %Ln grupo</numerusform>
            <numerusform>Original cambiado en %Ln grupos</numerusform>
        </translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Buscar más duplicados</translation>
    </message>
    <message>
        <source>Comparing every song with every other...</source>
        <translation>Comparando cada canción con todas las demás…</translation>
    </message>
    <message>
        <source>Return to First Result</source>
        <translation>Volver al primer resultado</translation>
    </message>
    <message>
        <source>Returned to the first result</source>
        <translation>Se ha vuelto al primer resultado</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Conservar esta</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Conservar copias de esta carpeta</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Conservar copias sin pérdida</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>No es un duplicado</translation>
    </message>
    <message>
        <source>No group has changed</source>
        <translation>No ha cambiado ningún grupo</translation>
    </message>
    <message>
        <source>Not a duplicate: %1</source>
        <translation>No es un duplicado: %1</translation>
    </message>
</context>
<context>
    <name>Scan</name>
    <message>
        <source>Starting scan...</source>
        <translation>Iniciando el análisis…</translation>
    </message>
    <message>
        <source>Step 1/4: Discovering audio files...</source>
        <translation>Paso 1/4: buscando archivos de audio…</translation>
    </message>
    <message>
        <source>No audio files found in the selected folder.</source>
        <translation>No se encontraron archivos de audio en la carpeta seleccionada.</translation>
    </message>
    <message numerus="yes">
        <source>Step 1/4: Processing %n audio files...</source>
        <translation>
            <numerusform>Paso 1/4: procesando %Ln archivo de audio…</numerusform>
            <numerusform>Paso 1/4: procesando %Ln archivos de audio…</numerusform>
        </translation>
    </message>
    <message>
        <source>Step 1/4: Processing audio files (%1 of %2)</source>
        <translation>Paso 1/4: procesando archivos de audio (%L1 de %L2)</translation>
    </message>
    <message>
        <source>Step 2/4: Preparing for duplicate analysis...</source>
        <translation>Paso 2/4: preparando el análisis de duplicados…</translation>
    </message>
    <message>
        <source>No supported audio files found.</source>
        <translation>No se encontraron archivos de audio compatibles.</translation>
    </message>
    <message>
        <source>Step 2/4: Analyzing duplicates...</source>
        <translation>Paso 2/4: analizando duplicados…</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>Row Above</source>
        <translation>Fila anterior</translation>
    </message>
    <message>
        <source>Row Below</source>
        <translation>Fila siguiente</translation>
    </message>
    <message>
        <source>First Row</source>
        <translation>Primera fila</translation>
    </message>
    <message>
        <source>Last Row</source>
        <translation>Última fila</translation>
    </message>
    <message>
        <source>Hide the Songs of the Group</source>
        <translation>Ocultar las canciones del grupo</translation>
    </message>
    <message>
        <source>Show the Songs of the Group</source>
        <translation>Mostrar las canciones del grupo</translation>
    </message>
    <message>
        <source>On a Group: Hide or Show Its Songs</source>
        <translation>En un grupo: ocultar o mostrar sus canciones</translation>
    </message>
    <message>
        <source>Listen, or Stop</source>
        <translation>Escuchar o detener</translation>
    </message>
    <message>
        <source>Listen from the Same Second</source>
        <translation>Escuchar desde el mismo segundo</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Keep This One</source>
        <translation>Conservar esta</translation>
    </message>
    <message>
        <source>Menu of the Song or Group</source>
        <translation>Menú de la canción o del grupo</translation>
    </message>
    <message>
        <source>Add Song</source>
        <translation>Añadir canción</translation>
    </message>
    <message>
        <source>Scan Copied Files</source>
        <translation>Analizar archivos copiados</translation>
    </message>
    <message>
        <source>Save Report…</source>
        <translation>Guardar informe…</translation>
    </message>
    <message>
        <source>Clear List</source>
        <translation>Vaciar la lista</translation>
    </message>
    <message>
        <source>Filter Names and Folders</source>
        <translation>Filtrar nombres y carpetas</translation>
    </message>
    <message>
        <source>Find More Duplicates</source>
        <translation>Buscar más duplicados</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Open the Menu</source>
        <translation>Abrir el menú</translation>
    </message>
    <message>
        <source>Keyboard Shortcuts</source>
        <translation>Atajos de teclado</translation>
    </message>
    <message>
        <source>Show Main Window</source>
        <translation>Mostrar la ventana principal</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>Control siguiente</translation>
    </message>
    <message>
        <source>Close What Lies on Top, or Stop a Clean-Up</source>
        <translation>Cerrar lo que está encima o detener una limpieza</translation>
    </message>
</context>
<context>
    <name>ShortcutsSheet</name>
    <message>
        <source>In the List of Results</source>
        <translation>En la lista de resultados</translation>
    </message>
    <message>
        <source>Everywhere</source>
        <translation>En cualquier lugar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>SongLimitWarningView</name>
    <message>
        <source>Large Library Detection</source>
        <translation>Biblioteca grande detectada</translation>
    </message>
    <message>
        <source>Adding a large number of songs may affect performance.</source>
        <translation>Añadir muchas canciones puede afectar al rendimiento.</translation>
    </message>
    <message>
        <source>Performance Recommendations:</source>
        <translation>Recomendaciones de rendimiento:</translation>
    </message>
    <message>
        <source>Best Performance: Up to 5000 songs</source>
        <translation>Mejor rendimiento: hasta 5000 canciones</translation>
    </message>
    <message>
        <source>Good Performance: 5000-10000 songs</source>
        <translation>Buen rendimiento: de 5000 a 10&#xa0;000 canciones</translation>
    </message>
    <message>
        <source>Maximum per session: 500000 songs</source>
        <translation>Máximo por sesión: 500&#xa0;000 canciones</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Add Anyway</source>
        <translation>Añadir igualmente</translation>
    </message>
</context>
<context>
    <name>SongMenu</name>
    <message>
        <source>Stop</source>
        <comment>the playback of a song</comment>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Listen</source>
        <comment>to a song</comment>
        <translation>Escuchar</translation>
    </message>
    <message>
        <source>Keep Copies in This Folder</source>
        <translation>Conservar copias de esta carpeta</translation>
    </message>
    <message>
        <source>Keep Lossless Copies</source>
        <translation>Conservar copias sin pérdida</translation>
    </message>
    <message>
        <source>Not a Duplicate</source>
        <translation>No es un duplicado</translation>
    </message>
    <message>
        <source>Show in Folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>Copiar la ruta</translation>
    </message>
</context>
<context>
    <name>SongRow</name>
    <message>
        <source>Stop listening</source>
        <translation>Dejar de escuchar</translation>
    </message>
    <message>
        <source>Click to listen and verify this song</source>
        <translation>Pulse para escuchar y comprobar esta canción</translation>
    </message>
    <message>
        <source>Delete this song</source>
        <translation>Eliminar esta canción</translation>
    </message>
    <message>
        <source>Moves %1 to the Trash</source>
        <translation>Mueve %1 a la papelera</translation>
    </message>
</context>
<context>
    <name>Start</name>
    <message>
        <source>no window can be opened on this display; --report needs none</source>
        <translation>no se puede abrir una ventana en esta pantalla; --report no la necesita</translation>
    </message>
    <message>
        <source>the window is busy and can scan nothing until that is done</source>
        <translation>la ventana está ocupada y no puede analizar nada hasta que termine</translation>
    </message>
    <message>
        <source>there is no display to open a window on; --report needs none</source>
        <translation>no hay ninguna pantalla en la que abrir una ventana; --report no la necesita</translation>
    </message>
</context>
<context>
    <name>TableColumns</name>
    <message>
        <source>File Type</source>
        <translation>Tipo</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Duración</translation>
    </message>
    <message>
        <source>File Size</source>
        <translation>Tamaño</translation>
    </message>
    <message>
        <source>Folder Location</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>999.99 GB</source>
        <comment>the longest size, for the width of its column</comment>
        <translation>999,99&#xa0;GB</translation>
    </message>
    <message>
        <source>ORIGINAL</source>
        <comment>a song</comment>
        <translation>ORIGINAL</translation>
    </message>
    <message>
        <source>DUPLICATE</source>
        <comment>a song</comment>
        <translation>DUPLICADO</translation>
    </message>
</context>
<context>
    <name>TableHeaderView</name>
    <message>
        <source>File Name</source>
        <translation>Nombre del archivo</translation>
    </message>
</context>
<context>
    <name>ToastView</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>Trash</name>
    <message>
        <source>The Trash of this disk cannot be used: %1</source>
        <comment>%1 is the reason</comment>
        <translation>No se puede usar la papelera de este disco: %1</translation>
    </message>
    <message>
        <source>It is on another file system</source>
        <comment>the Trash</comment>
        <translation>Está en otro sistema de archivos</translation>
    </message>
    <message>
        <source>Not a file</source>
        <translation>No es un archivo</translation>
    </message>
</context>
<context>
    <name>UndoHistory</name>
    <message>
        <source>Undo</source>
        <comment>a button</comment>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <comment>the name of a step, such as Move to Trash</comment>
        <translation>Deshacer: %1</translation>
    </message>
</context>
<context>
    <name>WelcomeView</name>
    <message>
        <source>Welcome to Sonavo</source>
        <translation>Le damos la bienvenida a Sonavo</translation>
    </message>
    <message>
        <source>Find and remove duplicate songs from your music library</source>
        <translation>Encuentre y quite las canciones duplicadas de su biblioteca de música</translation>
    </message>
    <message>
        <source>Browse Files</source>
        <translation>Examinar</translation>
    </message>
</context>
<context>
    <name>WindowHeader</name>
    <message>
        <source>Switch to the light theme</source>
        <translation>Cambiar al tema claro</translation>
    </message>
    <message>
        <source>Switch to the dark theme</source>
        <translation>Cambiar al tema oscuro</translation>
    </message>
</context>
<context>
    <name>sonavo::CleanUpFailuresModel</name>
    <message numerus="yes">
        <source>%Ln files could not be moved</source>
        <translation>
            <numerusform>No se pudo mover %Ln archivo</numerusform>
            <numerusform>No se pudieron mover %Ln archivos</numerusform>
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
        <translation>Duplicado</translation>
    </message>
    <message numerus="yes">
        <source>Group of %n songs</source>
        <translation>
            <numerusform>Grupo de %Ln canción</numerusform>
            <numerusform>Grupo de %Ln canciones</numerusform>
        </translation>
    </message>
    <message>
        <source>Frees %1</source>
        <comment>%1 is a size</comment>
        <translation>Libera %1</translation>
    </message>
    <message>
        <source>Found only by comparing every song with every other. Listen before you delete it.</source>
        <translation>Encontrada solo al comparar cada canción con todas las demás. Escúchela antes de eliminarla.</translation>
    </message>
    <message numerus="yes">
        <source>Filter hides %Ln duplicates</source>
        <translation>
            <numerusform>El filtro oculta %Ln duplicado</numerusform>
            <numerusform>El filtro oculta %Ln duplicados</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::LongWork</name>
    <message>
        <source>No duplicates found</source>
        <translation>No se encontraron duplicados</translation>
    </message>
    <message numerus="yes">
        <source>Found %Ln duplicate files</source>
        <translation>
            <numerusform>%Ln archivo duplicado encontrado</numerusform>
            <numerusform>%Ln archivos duplicados encontrados</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>sonavo::Notification</name>
    <message>
        <source>Show</source>
        <comment>the window, by a click on a notification</comment>
        <translation>Mostrar</translation>
    </message>
</context>
</TS>
