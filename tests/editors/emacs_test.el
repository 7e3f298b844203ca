;;; Prints the lines that Emacs marks as faults in XML files, one for each file:
;;; its name, and the lines.

(require 'nxml-mode)
(require 'rng-valid)
(require 'rng-loc)

(defun marked-lines ()
  "The lines on which marks of faults begin."
  (sort
   (delete-dups
    (mapcar (lambda (mark) (line-number-at-pos (overlay-start mark)))
            (seq-filter (lambda (mark) (eq (overlay-get mark 'category) 'rng-error))
                        (overlays-in (point-min) (point-max)))))
   #'<))

;; Arguments: XML files.
(dolist (file command-line-args-left)
  (with-current-buffer (find-file-noselect file)
    (unless (eq major-mode 'nxml-mode) (error "%s: is not in nxml-mode" file))
    (unless rng-current-schema-file-name (error "%s: no schema is found" file))
    (while (rng-do-some-validation))
    (princ (format "%s:%s\n" (file-name-nondirectory file)
                   (mapconcat (lambda (line) (format " %d" line)) (marked-lines) "")))))
(kill-emacs 0)
