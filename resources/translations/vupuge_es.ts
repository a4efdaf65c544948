<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Vupuge</name>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source> points</source>
        <translation> puntos</translation>
    </message>
    <message>
        <source>%1 (cannot be read)</source>
        <translation>%1 (no se puede leer)</translation>
    </message>
    <message>
        <source>%1 as they were</source>
        <translation>%1 sin cambios</translation>
    </message>
    <message>
        <source>%1 as to-do lines</source>
        <translation>%1 como líneas de tareas</translation>
    </message>
    <message>
        <source>%1 at line %2, column %3</source>
        <translation>%1 en la línea %2, columna %3</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>No se pudo iniciar %1: %2</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 no responde.</translation>
    </message>
    <message>
        <source>%1 does not understand what it was asked (%2).</source>
        <translation>%1 no entiende la petición (%2).</translation>
    </message>
    <message>
        <source>%1 ended before it answered.</source>
        <translation>%1 terminó antes de responder.</translation>
    </message>
    <message>
        <source>%1 gave an answer that cannot be understood (%2).</source>
        <translation>La respuesta de %1 no se puede entender (%2).</translation>
    </message>
    <message>
        <source>%1 imported</source>
        <translation>%1 importadas</translation>
    </message>
    <message>
        <source>%1 in skipped notes</source>
        <translation>%1 en notas omitidas</translation>
    </message>
    <message>
        <source>%1 is neither running nor installed.</source>
        <translation>%1 no está abierto ni instalado.</translation>
    </message>
    <message>
        <source>%1 items could not be imported. The first is “%2”: %3</source>
        <translation>No se pudieron importar %1 elementos. El primero es «%2»: %3</translation>
    </message>
    <message>
        <source>%1 kept at the end of their notes</source>
        <translation>%1 conservados al final de sus notas</translation>
    </message>
    <message>
        <source>%1 lead to imported notes</source>
        <translation>%1 llevan a notas importadas</translation>
    </message>
    <message>
        <source>%1 left out</source>
        <translation>%1 dejados fuera</translation>
    </message>
    <message>
        <source>%1 not imported</source>
        <translation>%1 sin importar</translation>
    </message>
    <message>
        <source>%1 refused what it was asked (%2).</source>
        <translation>%1 rechazó la petición (%2).</translation>
    </message>
    <message>
        <source>%1 shown</source>
        <translation>%1 mostrados</translation>
    </message>
    <message>
        <source>%1 skipped</source>
        <translation>%1 omitidas</translation>
    </message>
    <message>
        <source>%1$@ of %2$@</source>
        <translation>%1$@ de %2$@</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%@/sec</source>
        <translation>%@/s</translation>
    </message>
    <message numerus="yes">
        <source>%Ln notebooks checked</source>
        <translation>
            <numerusform>%Ln libreta marcada</numerusform>
            <numerusform>%Ln libretas marcadas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes</source>
        <translation>
            <numerusform>%Ln nota</numerusform>
            <numerusform>%Ln notas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were imported.</source>
        <translation>
            <numerusform>Se ha importado %Ln nota.</numerusform>
            <numerusform>Se han importado %Ln notas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln notes were skipped.</source>
        <translation>
            <numerusform>Se ha omitido %Ln nota.</numerusform>
            <numerusform>Se han omitido %Ln notas.</numerusform>
        </translation>
    </message>
    <message>
        <source>%ld day remaining</source>
        <translation>Falta %ld día</translation>
    </message>
    <message>
        <source>%ld days remaining</source>
        <translation>Faltan %ld días</translation>
    </message>
    <message>
        <source>%ld hour remaining</source>
        <translation>Falta %ld hora</translation>
    </message>
    <message>
        <source>%ld hours remaining</source>
        <translation>Faltan %ld horas</translation>
    </message>
    <message>
        <source>%ld minute remaining</source>
        <translation>Falta %ld minuto</translation>
    </message>
    <message>
        <source>%ld minutes remaining</source>
        <translation>Faltan %ld minutos</translation>
    </message>
    <message>
        <source>%ld second remaining</source>
        <translation>Falta %ld segundo</translation>
    </message>
    <message>
        <source>%ld seconds remaining</source>
        <translation>Faltan %ld segundos</translation>
    </message>
    <message>
        <source>%lu notes exported</source>
        <translation>%lu notas exportadas</translation>
    </message>
    <message>
        <source>%lu of %lu notes exported</source>
        <translation>%lu de %lu notas exportadas</translation>
    </message>
    <message>
        <source>&amp;About Vupuge</source>
        <translation>&amp;Acerca de Vupuge</translation>
    </message>
    <message>
        <source>&amp;Background colour:</source>
        <translation>Color de &amp;fondo:</translation>
    </message>
    <message>
        <source>&amp;Check All Notebooks</source>
        <translation>&amp;Marcar todas las libretas</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Cerrar</translation>
    </message>
    <message>
        <source>&amp;Done</source>
        <translation>&amp;Hecho</translation>
    </message>
    <message>
        <source>&amp;ENEX Files</source>
        <translation>Archivos &amp;ENEX</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edición</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Find Notebook</source>
        <translation>&amp;Buscar libreta</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>&amp;Letra:</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importar</translation>
    </message>
    <message>
        <source>&amp;Notebooks to import:</source>
        <translation>&amp;Libretas que se importan:</translation>
    </message>
    <message>
        <source>&amp;Notes</source>
        <translation>&amp;Notas</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Opciones…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>&amp;Read files of today's Evernote whole</source>
        <translation>&amp;Leer completos los archivos del Evernote actual</translation>
    </message>
    <message>
        <source>&amp;Release Notes</source>
        <translation>&amp;Notas de la versión</translation>
    </message>
    <message>
        <source>&amp;Restore Defaults</source>
        <translation>&amp;Restablecer valores predeterminados</translation>
    </message>
    <message>
        <source>&amp;Text colour:</source>
        <translation>&amp;Color del texto:</translation>
    </message>
    <message>
        <source>&amp;Uncheck All Notebooks</source>
        <translation>&amp;Desmarcar todas las libretas</translation>
    </message>
    <message>
        <source>&amp;Web Pages</source>
        <translation>Páginas &amp;web</translation>
    </message>
    <message>
        <source>&amp;Zoom:</source>
        <translation>&amp;Zoom:</translation>
    </message>
    <message>
        <source>A date is too far off for an XML property list.</source>
        <translation>Una fecha es demasiado lejana para una lista de propiedades XML.</translation>
    </message>
    <message>
        <source>A date of the note is damaged and was left out.</source>
        <translation>Una fecha de la nota está dañada y se ha omitido.</translation>
    </message>
    <message>
        <source>A library folder takes no destination, rating, comments, label or tags.</source>
        <translation>Una carpeta de biblioteca no admite destino, puntuación, comentarios, rótulo ni etiquetas.</translation>
    </message>
    <message>
        <source>A link is changed where its text is the title of exactly one note of the file. All others keep leading to Evernote.</source>
        <translation>Un enlace se cambia cuando su texto es el título de exactamente una nota del archivo. Todos los demás siguen llevando a Evernote.</translation>
    </message>
    <message>
        <source>A note is not there any more.</source>
        <translation>Una nota ya no está.</translation>
    </message>
    <message>
        <source>A secure connection to the server could not be made.</source>
        <translation>No se pudo establecer una conexión segura con el servidor.</translation>
    </message>
    <message>
        <source>A server with the specified host name could not be found.</source>
        <translation>No se encontró un servidor con ese nombre.</translation>
    </message>
    <message>
        <source>A tag with more than %1 attributes</source>
        <translation>Una etiqueta con más de %1 atributos</translation>
    </message>
    <message>
        <source>A value has no place in a property list.</source>
        <translation>Un valor no tiene cabida en una lista de propiedades.</translation>
    </message>
    <message>
        <source>An error occurred while exporting.</source>
        <translation>Se produjo un error al exportar.</translation>
    </message>
    <message>
        <source>An older way of getting notes out of Evernote, one file for each note. ENEX keeps more.</source>
        <translation>Una forma antigua de sacar notas de Evernote, un archivo por nota. ENEX conserva más.</translation>
    </message>
    <message>
        <source>An unknown error occurred.</source>
        <translation>Se produjo un error desconocido.</translation>
    </message>
    <message>
        <source>Another import is running.</source>
        <translation>Hay otra importación en curso.</translation>
    </message>
    <message>
        <source>Another note has the same link; only that one was kept.</source>
        <translation>Otra nota tiene el mismo enlace; solo se ha conservado esa.</translation>
    </message>
    <message>
        <source>Attachments that the files do not hold: %1</source>
        <translation>Adjuntos que los archivos no contienen: %1</translation>
    </message>
    <message>
        <source>Attachments that the note shows but the file does not hold: %1.</source>
        <translation>Adjuntos que la nota muestra pero el archivo no contiene: %1.</translation>
    </message>
    <message>
        <source>Attachments: %1</source>
        <translation>Adjuntos: %1</translation>
    </message>
    <message>
        <source>Bookmark</source>
        <translation>Marcador</translation>
    </message>
    <message>
        <source>Brings Evernote notes into Quillery.</source>
        <translation>Lleva notas de Evernote a Quillery.</translation>
    </message>
    <message>
        <source>C&amp;hoose Folder...</source>
        <translation>&amp;Elegir carpeta…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Cancelling...</source>
        <translation>Cancelando…</translation>
    </message>
    <message>
        <source>Cannot create input stream.</source>
        <translation>No se puede crear el flujo de entrada.</translation>
    </message>
    <message>
        <source>Cannot create parser.</source>
        <translation>No se puede crear el analizador.</translation>
    </message>
    <message>
        <source>Cannot parse "%@" data.</source>
        <translation>No se pueden analizar los datos de «%@».</translation>
    </message>
    <message>
        <source>Choose &amp;Folder...</source>
        <translation>Elegir &amp;carpeta…</translation>
    </message>
    <message>
        <source>Choose ENEX File...</source>
        <translation>Elegir archivo ENEX…</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Code: %ld</source>
        <translation>Código: %ld</translation>
    </message>
    <message>
        <source>Could not connect to the server.</source>
        <translation>No se pudo conectar con el servidor.</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predeterminado</translation>
    </message>
    <message>
        <source>Default (%1)</source>
        <translation>Predeterminado (%1)</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Documento</translation>
    </message>
    <message>
        <source>Drop an ENEX file here</source>
        <translation>Suelte aquí un archivo ENEX</translation>
    </message>
    <message>
        <source>Due: %1</source>
        <translation>Vence: %1</translation>
    </message>
    <message>
        <source>Elements within more than %1 others</source>
        <translation>Elementos dentro de más de %1 otros</translation>
    </message>
    <message>
        <source>Encrypted passages, which cannot be read: %1. Asterisks stand in their place.</source>
        <translation>Pasajes cifrados, que no se pueden leer: %1. En su lugar hay asteriscos.</translation>
    </message>
    <message>
        <source>Encrypted passages: %1</source>
        <translation>Pasajes cifrados: %1</translation>
    </message>
    <message>
        <source>Evernote 10 and later write ENEX files in a new way. Read as they stand, such files lose dates and tasks, and tags gain empty entries. Files that are dropped on the window are recognized as long as nothing is chosen here.</source>
        <translation>Evernote 10 y posteriores escriben los archivos ENEX de una forma nueva. Leídos tal cual, estos archivos pierden fechas y tareas, y las etiquetas reciben entradas vacías. Los archivos que se sueltan en la ventana se reconocen mientras no se elija nada aquí.</translation>
    </message>
    <message>
        <source>Evernote 5.2.0 or later is required.</source>
        <translation>Se necesita Evernote 5.2.0 o posterior.</translation>
    </message>
    <message>
        <source>Evernote did not export this note.</source>
        <translation>Evernote no ha exportado esta nota.</translation>
    </message>
    <message>
        <source>Evernote export files (%1)</source>
        <translation>Archivos de exportación de Evernote (%1)</translation>
    </message>
    <message>
        <source>Everything came across.</source>
        <translation>Se ha importado todo.</translation>
    </message>
    <message>
        <source>Everything that is made of each note stands in the log of the next import.</source>
        <translation>En el registro de la próxima importación figura todo lo que resulta de cada nota.</translation>
    </message>
    <message>
        <source>Export notes from Evernote in the format ENEX and try again.</source>
        <translation>Exporte notas de Evernote en formato ENEX e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Exported files in the folder “%1” are listed here as notebooks.</source>
        <translation>Los archivos exportados de la carpeta «%1» aparecen aquí como libretas.</translation>
    </message>
    <message>
        <source>Exporting Notes</source>
        <translation>Exportando notas</translation>
    </message>
    <message>
        <source>Exporting notes from "%@"</source>
        <translation>Exportando notas de «%@»</translation>
    </message>
    <message>
        <source>Exports Folder</source>
        <translation>Carpeta de exportaciones</translation>
    </message>
    <message>
        <source>Exports folder:</source>
        <translation>Carpeta de exportaciones:</translation>
    </message>
    <message>
        <source>Fi&amp;xed-pitch font:</source>
        <translation>Letra de ancho &amp;fijo:</translation>
    </message>
    <message>
        <source>Files to import, and folders that hold such files.</source>
        <translation>Archivos que se importan y carpetas que los contienen.</translation>
    </message>
    <message>
        <source>Flagged</source>
        <translation>Marcada</translation>
    </message>
    <message>
        <source>Font &amp;size:</source>
        <translation>&amp;Tamaño de letra:</translation>
    </message>
    <message>
        <source>Getting notebook names...</source>
        <translation>Obteniendo los nombres de las libretas…</translation>
    </message>
    <message>
        <source>Have Evernote export notes as HTML</source>
        <translation>Hacer que Evernote exporte las notas como HTML</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>Import ENEX Fi&amp;le...</source>
        <translation>Importar archivo ENE&amp;X…</translation>
    </message>
    <message>
        <source>Import ENEX File</source>
        <translation>Importar archivo ENEX</translation>
    </message>
    <message>
        <source>Import “%1”</source>
        <translation>Importar «%1»</translation>
    </message>
    <message>
        <source>Imported from Evernote, %@</source>
        <translation>Importado de Evernote, %@</translation>
    </message>
    <message>
        <source>In Evernote, choose a notebook, then “Export Notebook…” and the format ENEX. Drop the file that you get on this window, or choose it here.</source>
        <translation>En Evernote, elija una libreta, después «Exportar libreta…» y el formato ENEX. Suelte en esta ventana el archivo obtenido o elíjalo aquí.</translation>
    </message>
    <message>
        <source>Initializing Evernote...</source>
        <translation>Iniciando Evernote…</translation>
    </message>
    <message>
        <source>Invalid content data for resource.</source>
        <translation>El contenido del recurso no es válido.</translation>
    </message>
    <message>
        <source>Invalid crypt tag.</source>
        <translation>Etiqueta de cifrado no válida.</translation>
    </message>
    <message>
        <source>Invalid media tag.</source>
        <translation>Etiqueta de medios no válida.</translation>
    </message>
    <message>
        <source>Invalid todo tag.</source>
        <translation>Etiqueta de tarea no válida.</translation>
    </message>
    <message>
        <source>It does not reach to its end.</source>
        <translation>No llega hasta su final.</translation>
    </message>
    <message>
        <source>Keep attachments that a note's text does not show</source>
        <translation>Conservar los adjuntos que el texto de la nota no muestra</translation>
    </message>
    <message>
        <source>Keeps dates, tags and tasks of files that Evernote 10 or later has written.</source>
        <translation>Conserva fechas, etiquetas y tareas de los archivos escritos por Evernote 10 o posterior.</translation>
    </message>
    <message>
        <source>Library Folder</source>
        <translation>Carpeta de la biblioteca</translation>
    </message>
    <message>
        <source>Library folder:</source>
        <translation>Carpeta de la biblioteca:</translation>
    </message>
    <message>
        <source>Links between notes lead to the imported notes</source>
        <translation>Los enlaces entre notas llevan a las notas importadas</translation>
    </message>
    <message>
        <source>Links between notes: %1</source>
        <translation>Enlaces entre notas: %1</translation>
    </message>
    <message>
        <source>Links that lead to notes which were skipped: %1.</source>
        <translation>Enlaces que llevan a notas omitidas: %1.</translation>
    </message>
    <message>
        <source>Load clipped pages from the web again</source>
        <translation>Volver a cargar de la web las páginas recortadas</translation>
    </message>
    <message>
        <source>Loading notebooks</source>
        <translation>Cargando libretas</translation>
    </message>
    <message>
        <source>Mark captured pages for Java</source>
        <translation>Marcar las páginas capturadas para Java</translation>
    </message>
    <message>
        <source>Mark captured pages for JavaScript</source>
        <translation>Marcar las páginas capturadas para JavaScript</translation>
    </message>
    <message>
        <source>Mark captured pages for plug-ins</source>
        <translation>Marcar las páginas capturadas para complementos</translation>
    </message>
    <message>
        <source>More marks of tags:</source>
        <translation>Más marcas de etiqueta:</translation>
    </message>
    <message>
        <source>Movie</source>
        <translation>Película</translation>
    </message>
    <message>
        <source>New Note</source>
        <translation>Nota nueva</translation>
    </message>
    <message>
        <source>Next File</source>
        <translation>Archivo siguiente</translation>
    </message>
    <message>
        <source>No content data for resource.</source>
        <translation>El recurso no tiene contenido.</translation>
    </message>
    <message>
        <source>No notebooks selected!</source>
        <translation>¡No hay libretas seleccionadas!</translation>
    </message>
    <message>
        <source>Not everything that the files hold came across.</source>
        <translation>No se ha importado todo lo que contienen los archivos.</translation>
    </message>
    <message>
        <source>Not imported</source>
        <translation>No importado</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>Notebook</source>
        <translation>Libreta</translation>
    </message>
    <message>
        <source>Notebooks</source>
        <translation>Libretas</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notas</translation>
    </message>
    <message>
        <source>Notes go here on a machine without Quillery.</source>
        <translation>En un equipo sin Quillery, las notas van aquí.</translation>
    </message>
    <message>
        <source>Notes: %1</source>
        <translation>Notas: %1</translation>
    </message>
    <message>
        <source>Nothing could be imported into “%1”: %2</source>
        <translation>No se pudo importar nada en «%1»: %2</translation>
    </message>
    <message>
        <source>Nothing in a page is ever run while it is captured, whatever is chosen here.</source>
        <translation>Elija lo que elija aquí, nada de una página se ejecuta al capturarla.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Objects are nested too deeply.</source>
        <translation>Los objetos están anidados a demasiada profundidad.</translation>
    </message>
    <message>
        <source>On a machine without Evernote its ENEX files are listed as notebooks, from the next start on.</source>
        <translation>En un equipo sin Evernote, sus archivos ENEX aparecen como libretas a partir del próximo inicio.</translation>
    </message>
    <message>
        <source>Only marked words in comments are tags</source>
        <translation>Solo las palabras marcadas de los comentarios son etiquetas</translation>
    </message>
    <message>
        <source>Open &amp;Log</source>
        <translation>Abrir el re&amp;gistro</translation>
    </message>
    <message>
        <source>Open Li&amp;brary</source>
        <translation>Abrir la &amp;biblioteca</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>Otherwise a web clip is made from what Evernote has kept of the page. Pages are fetched without your cookies and passwords.</source>
        <translation>Si no, el recorte se hace con lo que Evernote ha conservado de la página. Las páginas se obtienen sin sus cookies ni contraseñas.</translation>
    </message>
    <message>
        <source>Please ensure the latest version of Evernote is installed and try again.</source>
        <translation>Asegúrese de que está instalada la última versión de Evernote e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Preparing...</source>
        <translation>Preparando…</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Progreso</translation>
    </message>
    <message>
        <source>Quillery 3.5 or later is required.</source>
        <translation>Se necesita Quillery 3.5 o posterior.</translation>
    </message>
    <message>
        <source>Quillery app not found.</source>
        <translation>No se encuentra la aplicación Quillery.</translation>
    </message>
    <message>
        <source>Quillery is ending and takes no more imports.</source>
        <translation>Quillery está terminando y ya no acepta importaciones.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Salir</translation>
    </message>
    <message>
        <source>Read files of today's Evernote whole</source>
        <translation>Leer completos los archivos del Evernote actual</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Motivo</translation>
    </message>
    <message>
        <source>Recovered Items</source>
        <translation>Elementos recuperados</translation>
    </message>
    <message>
        <source>Remark</source>
        <translation>Observación</translation>
    </message>
    <message>
        <source>Reminder: %1</source>
        <translation>Recordatorio: %1</translation>
    </message>
    <message>
        <source>Repeats: %1</source>
        <translation>Se repite: %1</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Search notebooks by name</source>
        <translation>Buscar libretas por nombre</translation>
    </message>
    <message>
        <source>Select the notebooks to import and try again.</source>
        <translation>Seleccione las libretas que desea importar e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Show the ruler in imported notes</source>
        <translation>Mostrar la regla en las notas importadas</translation>
    </message>
    <message>
        <source>Si&amp;ze:</source>
        <translation>&amp;Tamaño:</translation>
    </message>
    <message>
        <source>Siz&amp;e:</source>
        <translation>Ta&amp;maño:</translation>
    </message>
    <message>
        <source>Skipped</source>
        <translation>Omitida</translation>
    </message>
    <message>
        <source>Skipped notes and remarks</source>
        <translation>Notas omitidas y observaciones</translation>
    </message>
    <message>
        <source>Some notes may be missing; the log tells more.</source>
        <translation>Quizá falten notas; el registro dice más.</translation>
    </message>
    <message>
        <source>Sound</source>
        <translation>Sonido</translation>
    </message>
    <message>
        <source>Standard f&amp;ont:</source>
        <translation>Letra &amp;estándar:</translation>
    </message>
    <message>
        <source>Tasks that were lost because the file was read as it stands: %1.</source>
        <translation>Tareas perdidas porque el archivo se leyó tal cual: %1.</translation>
    </message>
    <message>
        <source>Tasks: %1</source>
        <translation>Tareas: %1</translation>
    </message>
    <message>
        <source>That is what Evernote means by them. Otherwise they are taken for the time on the clock.</source>
        <translation>Así las entiende Evernote. De lo contrario se toman por la hora local.</translation>
    </message>
    <message>
        <source>The Internet connection appears to be offline.</source>
        <translation>Parece que no hay conexión a Internet.</translation>
    </message>
    <message>
        <source>The address is not valid.</source>
        <translation>La dirección no es válida.</translation>
    </message>
    <message>
        <source>The address is of a kind that cannot be loaded.</source>
        <translation>Las direcciones de este tipo no se pueden cargar.</translation>
    </message>
    <message>
        <source>The archive is damaged.</source>
        <translation>El archivo comprimido está dañado.</translation>
    </message>
    <message>
        <source>The attachment “%1” stands where the note shows nothing; it was left out.</source>
        <translation>El adjunto «%1» está donde la nota no muestra nada; se ha omitido.</translation>
    </message>
    <message>
        <source>The attributes of “%1” are too large for its file system.</source>
        <translation>Los atributos de «%1» son demasiado grandes para su sistema de archivos.</translation>
    </message>
    <message>
        <source>The box in the first column checks or unchecks all notebooks shown.</source>
        <translation>La casilla de la primera columna marca o desmarca todas las libretas mostradas.</translation>
    </message>
    <message>
        <source>The catalogue of an interrupted import is damaged.</source>
        <translation>El catálogo de una importación interrumpida está dañado.</translation>
    </message>
    <message>
        <source>The connection to the session bus was lost before %1 answered.</source>
        <translation>Se perdió la conexión con el bus de sesión antes de que %1 respondiera.</translation>
    </message>
    <message>
        <source>The copy of the file could not be written: %1</source>
        <translation>No se ha podido escribir la copia del archivo: %1</translation>
    </message>
    <message>
        <source>The damaged settings cannot be kept.</source>
        <translation>No se pueden conservar los ajustes dañados.</translation>
    </message>
    <message>
        <source>The document could not be repaired.</source>
        <translation>No se pudo reparar el documento.</translation>
    </message>
    <message>
        <source>The document has no content.</source>
        <translation>El documento no tiene contenido.</translation>
    </message>
    <message>
        <source>The document is empty.</source>
        <translation>El documento está vacío.</translation>
    </message>
    <message>
        <source>The document is not well-formed</source>
        <translation>El documento no está bien formado</translation>
    </message>
    <message>
        <source>The document, or a tag in it, is too large.</source>
        <translation>El documento, o una etiqueta, es demasiado grande.</translation>
    </message>
    <message>
        <source>The encoding “%1” is not supported.</source>
        <translation>No se admite la codificación «%1».</translation>
    </message>
    <message>
        <source>The export “%1” could not be written: %2</source>
        <translation>No se ha podido escribir la exportación «%1»: %2</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>El archivo no existe.</translation>
    </message>
    <message>
        <source>The file is a folder.</source>
        <translation>El archivo es una carpeta.</translation>
    </message>
    <message>
        <source>The file is indented, as today's Evernote writes it. Read as it stands, it loses dates, and tags gain empty entries.</source>
        <translation>El archivo está sangrado, tal como lo escribe el Evernote actual. Leído tal cual, pierde fechas, y las etiquetas reciben entradas vacías.</translation>
    </message>
    <message>
        <source>The file is of today's Evernote and was read whole, so that its dates, tags and tasks came across. The options can turn that off.</source>
        <translation>El archivo es del Evernote actual y se ha leído completo, con sus fechas, etiquetas y tareas. En las opciones se puede desactivar.</translation>
    </message>
    <message>
        <source>The file isn’t in the correct format.</source>
        <translation>El archivo no tiene el formato correcto.</translation>
    </message>
    <message>
        <source>The file system does not keep the note's dates or tags on its file.</source>
        <translation>El sistema de archivos no conserva las fechas o etiquetas de la nota.</translation>
    </message>
    <message>
        <source>The file system of “%1” keeps no attributes.</source>
        <translation>El sistema de archivos de «%1» no conserva atributos.</translation>
    </message>
    <message>
        <source>The file “%1” changed while it was read.</source>
        <translation>El archivo «%1» cambió mientras se leía.</translation>
    </message>
    <message>
        <source>The file “%1” could not be opened: %2.</source>
        <translation>No se pudo abrir el archivo «%1»: %2.</translation>
    </message>
    <message>
        <source>The file “%1” could not be read: %2.</source>
        <translation>No se pudo leer el archivo «%1»: %2.</translation>
    </message>
    <message>
        <source>The file “%1” is empty.</source>
        <translation>El archivo «%1» está vacío.</translation>
    </message>
    <message>
        <source>The import did not finish.</source>
        <translation>La importación no terminó.</translation>
    </message>
    <message>
        <source>The import into “%1” could not be finished; the next one will do so: %2</source>
        <translation>La importación en «%1» no pudo terminarse; lo hará la próxima: %2</translation>
    </message>
    <message>
        <source>The library “%1” lies in the files folder.</source>
        <translation>La biblioteca «%1» está en la carpeta de archivos.</translation>
    </message>
    <message>
        <source>The load failed.</source>
        <translation>La carga falló.</translation>
    </message>
    <message>
        <source>The load was cancelled.</source>
        <translation>Se canceló la carga.</translation>
    </message>
    <message>
        <source>The manifest asks for “%1” to be removed, which is not its files folder.</source>
        <translation>El manifiesto pide eliminar «%1», que no es su carpeta de archivos.</translation>
    </message>
    <message>
        <source>The manifest is damaged: %1</source>
        <translation>El manifiesto está dañado: %1</translation>
    </message>
    <message>
        <source>The manifest names “%1”, which does not lie safely in its files folder.</source>
        <translation>El manifiesto nombra «%1», que no está con seguridad en su carpeta de archivos.</translation>
    </message>
    <message>
        <source>The manifest “%1” could not be read: %2</source>
        <translation>No se pudo leer el manifiesto «%1»: %2</translation>
    </message>
    <message>
        <source>The manifest “%1” was not written whole, so nothing can be imported from it. Perhaps the disk is full.</source>
        <translation>El manifiesto «%1» no se escribió entero, así que no se puede importar nada de él. Quizá el disco esté lleno.</translation>
    </message>
    <message>
        <source>The network connection was lost.</source>
        <translation>Se perdió la conexión de red.</translation>
    </message>
    <message>
        <source>The note does not belong to a file of exported notes.</source>
        <translation>La nota no pertenece a ningún archivo de notas exportadas.</translation>
    </message>
    <message>
        <source>The note's markup was malformed and has been repaired.</source>
        <translation>El marcado de la nota era defectuoso y se ha reparado.</translation>
    </message>
    <message>
        <source>The note's text could not be laid out and is missing: %1</source>
        <translation>El texto de la nota no se pudo componer y falta: %1</translation>
    </message>
    <message>
        <source>The note's text does not show the attachment “%1”; it was left out.</source>
        <translation>El texto de la nota no muestra el adjunto «%1»; se ha omitido.</translation>
    </message>
    <message>
        <source>The notebook is not there any more.</source>
        <translation>El cuaderno ya no está.</translation>
    </message>
    <message>
        <source>The notebook “%1” holds more notes than can be listed.</source>
        <translation>El cuaderno «%1» contiene más notas de las que se pueden enumerar.</translation>
    </message>
    <message>
        <source>The operation could not be completed. (%1 error %2.)</source>
        <translation>No se pudo completar la operación. (%1, error %2.)</translation>
    </message>
    <message>
        <source>The original of “%1” is not at “%2”.</source>
        <translation>El original de «%1» no está en «%2».</translation>
    </message>
    <message>
        <source>The page could not be read.</source>
        <translation>No se pudo leer la página.</translation>
    </message>
    <message>
        <source>The page has more resources than are loaded.</source>
        <translation>La página tiene más recursos de los que se cargan.</translation>
    </message>
    <message>
        <source>The page was loaded again; its attachment “%1” was left out.</source>
        <translation>La página se volvió a cargar; su adjunto «%1» se ha omitido.</translation>
    </message>
    <message>
        <source>The page was loaded again; the note's tasks were left out: %1.</source>
        <translation>La página se volvió a cargar; las tareas de la nota se han omitido: %1.</translation>
    </message>
    <message>
        <source>The page “%1” could not be opened.</source>
        <translation>No se pudo abrir la página «%1».</translation>
    </message>
    <message>
        <source>The parser was aborted.</source>
        <translation>El análisis se interrumpió.</translation>
    </message>
    <message>
        <source>The property list is damaged.</source>
        <translation>La lista de propiedades está dañada.</translation>
    </message>
    <message>
        <source>The property list is nested too deeply.</source>
        <translation>La lista de propiedades está anidada a demasiada profundidad.</translation>
    </message>
    <message>
        <source>The request timed out.</source>
        <translation>Se agotó el tiempo de la petición.</translation>
    </message>
    <message>
        <source>The resource is too large.</source>
        <translation>El recurso es demasiado grande.</translation>
    </message>
    <message>
        <source>The response could not be decoded.</source>
        <translation>No se pudo decodificar la respuesta.</translation>
    </message>
    <message>
        <source>The server gave a response that was not understood.</source>
        <translation>No se entendió la respuesta del servidor.</translation>
    </message>
    <message>
        <source>The server redirected to an address that cannot be loaded.</source>
        <translation>El servidor redirigió a una dirección que no se puede cargar.</translation>
    </message>
    <message>
        <source>The server sent no document.</source>
        <translation>El servidor no envió ningún documento.</translation>
    </message>
    <message>
        <source>The setting could not be saved.</source>
        <translation>No se pudo guardar el ajuste.</translation>
    </message>
    <message>
        <source>The settings folder cannot be made.</source>
        <translation>No se puede crear la carpeta de ajustes.</translation>
    </message>
    <message numerus="yes">
        <source>There are %Ln remarks on notes that came across.</source>
        <translation>
            <numerusform>Hay %Ln observación sobre notas importadas.</numerusform>
            <numerusform>Hay %Ln observaciones sobre notas importadas.</numerusform>
        </translation>
    </message>
    <message>
        <source>There is no ENEX file to import.</source>
        <translation>No hay ningún archivo ENEX que importar.</translation>
    </message>
    <message>
        <source>There is no permission to read the file.</source>
        <translation>No hay permiso para leer el archivo.</translation>
    </message>
    <message>
        <source>There is no session bus through which %1 could be reached.</source>
        <translation>No hay ningún bus de sesión a través del cual comunicarse con %1.</translation>
    </message>
    <message>
        <source>There were too many redirects.</source>
        <translation>Hubo demasiadas redirecciones.</translation>
    </message>
    <message>
        <source>They are added at the note's end. A web clip with such a document becomes a note.</source>
        <translation>Se añaden al final de la nota. Un recorte web con un documento así se convierte en nota.</translation>
    </message>
    <message>
        <source>This is no archived colour.</source>
        <translation>Esto no es un color archivado.</translation>
    </message>
    <message>
        <source>Times in ENEX files are in UTC</source>
        <translation>Las horas de los archivos ENEX están en UTC</translation>
    </message>
    <message>
        <source>To keep all of it, import the file again with the option “Read files of today's Evernote whole” (setting ModernENEX).</source>
        <translation>Para conservarlo todo, importe de nuevo el archivo con la opción «Leer completos los archivos del Evernote actual» (ajuste ModernENEX).</translation>
    </message>
    <message>
        <source>Two keys of a dictionary cannot be told apart.</source>
        <translation>Dos claves de un diccionario no se distinguen.</translation>
    </message>
    <message>
        <source>Unable to create file wrapper for file at path: %@</source>
        <translation>No se ha podido crear un paquete para el archivo en la ruta: %@</translation>
    </message>
    <message>
        <source>Unable to create the temporary directory to export files.</source>
        <translation>No se puede crear la carpeta temporal para exportar archivos.</translation>
    </message>
    <message>
        <source>Unable to find the Evernote application.</source>
        <translation>No se encuentra la aplicación Evernote.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>Use Default</source>
        <translation>Usar predeterminado</translation>
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
        <translation>Espere a que termine e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Web Page</source>
        <translation>Página web</translation>
    </message>
    <message>
        <source>Where nothing is chosen here, the choices made in Quillery hold.</source>
        <translation>Si no se elige nada aquí, valen los ajustes de Quillery.</translation>
    </message>
    <message>
        <source>Words are marked by @ or &amp;, and by the characters below. Otherwise every word of a comment without marks counts as a tag.</source>
        <translation>Las palabras se marcan con @ o &amp; y con los caracteres siguientes. Si no, cada palabra de un comentario sin marcas cuenta como etiqueta.</translation>
    </message>
    <message>
        <source>Write a detailed log</source>
        <translation>Escribir un registro detallado</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>Cero KB</translation>
    </message>
    <message>
        <source>[Missing Attachment]</source>
        <translation>[Falta el adjunto]</translation>
    </message>
    <message>
        <source>accepted</source>
        <translation>aceptado</translation>
    </message>
    <message>
        <source>bad gateway</source>
        <translation>pasarela incorrecta</translation>
    </message>
    <message>
        <source>bad request</source>
        <translation>petición incorrecta</translation>
    </message>
    <message>
        <source>client error</source>
        <translation>error del cliente</translation>
    </message>
    <message>
        <source>conflict</source>
        <translation>conflicto</translation>
    </message>
    <message>
        <source>created</source>
        <translation>creado</translation>
    </message>
    <message>
        <source>expectation failed</source>
        <translation>expectativa no cumplida</translation>
    </message>
    <message>
        <source>forbidden</source>
        <translation>prohibido</translation>
    </message>
    <message>
        <source>found</source>
        <translation>encontrado</translation>
    </message>
    <message>
        <source>gateway timed out</source>
        <translation>pasarela sin respuesta</translation>
    </message>
    <message>
        <source>informational</source>
        <translation>informativo</translation>
    </message>
    <message>
        <source>internal server error</source>
        <translation>error interno del servidor</translation>
    </message>
    <message>
        <source>it has no folder “%1”, which items belong to.</source>
        <translation>no tiene la carpeta «%1», a la que pertenecen elementos.</translation>
    </message>
    <message>
        <source>it holds no entities.</source>
        <translation>no contiene entidades.</translation>
    </message>
    <message>
        <source>its records are not in a dictionary.</source>
        <translation>sus registros no están en un diccionario.</translation>
    </message>
    <message>
        <source>length required</source>
        <translation>se requiere la longitud</translation>
    </message>
    <message>
        <source>method not allowed</source>
        <translation>método no permitido</translation>
    </message>
    <message>
        <source>moved permanently</source>
        <translation>trasladado definitivamente</translation>
    </message>
    <message>
        <source>no content</source>
        <translation>sin contenido</translation>
    </message>
    <message>
        <source>no error</source>
        <translation>ningún error</translation>
    </message>
    <message>
        <source>no longer exists</source>
        <translation>ya no existe</translation>
    </message>
    <message>
        <source>none</source>
        <translation>ninguna</translation>
    </message>
    <message>
        <source>not found</source>
        <translation>no encontrado</translation>
    </message>
    <message>
        <source>not modified</source>
        <translation>sin cambios</translation>
    </message>
    <message>
        <source>payment required</source>
        <translation>se requiere pago</translation>
    </message>
    <message>
        <source>precondition failed</source>
        <translation>condición previa no cumplida</translation>
    </message>
    <message>
        <source>proxy authentication required</source>
        <translation>se requiere autenticación del proxy</translation>
    </message>
    <message>
        <source>redirected</source>
        <translation>redirigido</translation>
    </message>
    <message>
        <source>request timed out</source>
        <translation>petición agotada</translation>
    </message>
    <message>
        <source>request too large</source>
        <translation>petición demasiado grande</translation>
    </message>
    <message>
        <source>requested URL too long</source>
        <translation>URL pedida demasiado larga</translation>
    </message>
    <message>
        <source>requested range not satisfiable</source>
        <translation>rango pedido no disponible</translation>
    </message>
    <message>
        <source>server error</source>
        <translation>error del servidor</translation>
    </message>
    <message>
        <source>service unavailable</source>
        <translation>servicio no disponible</translation>
    </message>
    <message>
        <source>success</source>
        <translation>correcto</translation>
    </message>
    <message>
        <source>too many requests</source>
        <translation>demasiadas peticiones</translation>
    </message>
    <message>
        <source>unacceptable</source>
        <translation>inaceptable</translation>
    </message>
    <message>
        <source>unauthorized</source>
        <translation>no autorizado</translation>
    </message>
    <message>
        <source>unimplemented</source>
        <translation>no implementado</translation>
    </message>
    <message>
        <source>unsupported media type</source>
        <translation>tipo de medio no admitido</translation>
    </message>
    <message>
        <source>unsupported version</source>
        <translation>versión no admitida</translation>
    </message>
    <message>
        <source>“%1” cannot be said to %2.</source>
        <translation>«%1» no se puede transmitir a %2.</translation>
    </message>
    <message>
        <source>“%1” cannot be taken twice.</source>
        <translation>«%1» no se puede tomar dos veces.</translation>
    </message>
    <message>
        <source>“%1” could not be imported: %2</source>
        <translation>No se pudo importar «%1»: %2</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <translation>No se pudo leer «%1»: %2.</translation>
    </message>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>No se pudo escribir «%1»: %2.</translation>
    </message>
    <message>
        <source>“%1” holds no catalogue that this version reads.</source>
        <translation>«%1» no contiene ningún catálogo que lea esta versión.</translation>
    </message>
    <message>
        <source>“%1” is gone: its files were removed before the import was finished.</source>
        <translation>«%1» ha desaparecido: sus archivos se eliminaron antes de terminar la importación.</translation>
    </message>
    <message>
        <source>“%1” is not UTF-8 text.</source>
        <translation>«%1» no es texto UTF-8.</translation>
    </message>
    <message>
        <source>“%1” is not a folder's record.</source>
        <translation>«%1» no es el registro de una carpeta.</translation>
    </message>
    <message>
        <source>“%1” is not an alias.</source>
        <translation>«%1» no es un alias.</translation>
    </message>
    <message>
        <source>“%1” is not an import manifest.</source>
        <translation>«%1» no es un manifiesto de importación.</translation>
    </message>
    <message>
        <source>“%1” is not an item's record.</source>
        <translation>«%1» no es el registro de un elemento.</translation>
    </message>
    <message>
        <source>“%1” is not the name of a file in “%2”.</source>
        <translation>«%1» no es el nombre de un archivo de «%2».</translation>
    </message>
</context>
</TS>
