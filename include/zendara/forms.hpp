// The screens as a model, for a front end of the host's own: the windows of zendara/windows.hpp and the automation of
// zendara/automation.hpp stand on nothing else. A front end shows what the model holds, passes in what the user does,
// and decides nothing: which keys a field takes, what is refused, where the focus goes happens in here.
//
// Such a front end implements FormHost and stands in Platform::forms. Boxes and beeps go to Platform::dialogs, programs
// to Platform::shell, and lists, banner and listings to the classes in Platform::components; whoever needs them before
// other windows implements those ports too.
//
// Life of a form. The component makes a form and loads it; while it loads it may ask for WindowHandle and PlaceOf. Then
// comes ShowModal, once: the front end shows the form, gives it its FormView, passes input in until Form::Loaded() is
// false, takes the view away and returns. A click on a button may call ShowModal for the next form before it returns,
// so shows nest; of several forms the last is in front, and it alone gets input. A front end that ends a show of its
// own accord calls Form::Close, with which the screen may ask or refuse, or Form::Unload, which does neither. After
// ShowModal a form is gone: nothing of it may be kept.
//
// Owners. The component owns forms and controls; a control lives as long as its form, and none comes or goes while the
// form is shown. The FormHost and its views are the front end's. A front end sets nothing in the model: what is not
// const in Form and in the controls is for the screens, but for the inputs, SetView, SetStatus and the drafts.
//
// What to show. Form::GetLayout is the structure, from which a front end makes its own places; a control that is not in
// it is not shown. The rest is read from the form and the controls at SetView, and again when a view is told:
// ControlChanged for anything of that control, FocusMoved for the focus and the pages in front, FormChanged for the
// rest; Subject, Position, Expected and Unsaved are read after each input. The calls come in the middle of events, many
// times for one change, and for forms that are not in front too: a view notes them, shows them when the input has
// returned, before another form or a box comes up and at DoEvents, and calls no input from within them.
//
// Input. Form::Press, Click, PointTo, Pick, TurnTo, Paste, MouseOver, Close and RestoreDraft, of the form in front,
// while no box, list or listing stands before it. Each is an event and returns when all that follows from it is done:
// the form may have been unloaded then, and other forms shown and closed. What cannot be done is not: a control that is
// hidden or disabled takes nothing. Editing is the model's, so a toolkit's own field only shows text, selection and
// caret. The mouse is over a control before it clicks it (MouseOver, then Click).
//
// Focus. It is the model's, and the toolkit's follows it. A form is shown with the focus set. A click moves it, Tab is
// a key like any other, and whoever else wants to move it, as a reader of screens, runs Form::SetFocus by Form::Run.
//
// Errors. No input throws: what fails in an event ends it and comes as a box, after Untrapped. What a function of the
// front end throws is such a failure of the event that called it, so a toolkit that cannot be left by an exception
// catches before. All calls come in the thread of InstallPlatform.
#pragma once

#include "zendara/forms/control.hpp"
#include "zendara/forms/drafts.hpp"
#include "zendara/forms/drawing.hpp"
#include "zendara/forms/form.hpp"
#include "zendara/forms/layout.hpp"
